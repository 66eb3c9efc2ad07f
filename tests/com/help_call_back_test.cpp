// SPDX-License-Identifier: MIT
// VnDesk.HelpCallBack: its event reaches sinks in scripts and in C++.
#include <gtest/gtest.h>
#include <ocidl.h>

#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/late_bound.h"
#include "support/script_host.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;

constexpr wchar_t kSink[] = L"Sub help_MenuHelp(text, help, enabled)\n"
                            L"Echo text & \"/\" & help & \"/\" & enabled\nEnd Sub\n";

TEST(HelpCallBackTest, ScriptReceivesCaptionHelpAndState) {
    ScriptRunner script;
    script.RunOk(std::wstring(kSink) + L"Set help = WScript.CreateObject(\"VnDesk.HelpCallBack\")\n"
                                       L"Connect help, \"help_\"\n"
                                       L"help.RaiseHelpEvent \"&Mở…\", \"Mở một hồ sơ\", True\n"
                                       L"help.RaiseHelpEvent \"\", \"\", False");
    EXPECT_EQ((std::vector<std::wstring>{L"&Mở…/Mở một hồ sơ/True", L"//False"}), script.Lines());
}

TEST(HelpCallBackTest, JScriptReceivesItToo) {
    ScriptRunner script(L"JScript");
    script.RunOk(L"function h_MenuHelp(text, help, enabled) {\n"
                 L"  Echo(text + '/' + help + '/' + enabled);\n}\n"
                 L"var help = WScript.CreateObject('VnDesk.HelpCallBack');\n"
                 L"Connect(help, 'h_');\n"
                 L"help.RaiseHelpEvent('Lưu', 'Ghi hồ sơ', true);");
    EXPECT_EQ(std::vector<std::wstring>{L"Lưu/Ghi hồ sơ/true"}, script.Lines());
}

TEST(HelpCallBackTest, WithoutASinkNothingHappens) {
    const LateBound help = LateBound::Create(L"VnDesk.HelpCallBack");
    help.Call(L"RaiseHelpEvent", {L"a", L"b", true});
}

TEST(HelpCallBackTest, NullTextsAreEmpty) {
    ScriptRunner script;
    ComPtr<IHelpCallBack> help;
    CLSID clsid;
    ASSERT_SUCCEEDED(CLSIDFromProgID(L"VnDesk.HelpCallBack", &clsid));
    ASSERT_SUCCEEDED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&help)));
    script.AddObject(L"help", help.Get());
    script.RunOk(std::wstring(kSink) + L"Connect help, \"help_\"");
    EXPECT_SUCCEEDED(help->RaiseHelpEvent(nullptr, nullptr, VARIANT_TRUE));
    EXPECT_EQ(std::vector<std::wstring>{L"//True"}, script.Lines());
}

TEST(HelpCallBackTest, TextsAreWholeWithZeroCharactersInThem) {
    ScriptRunner script;
    script.RunOk(L"Sub help_MenuHelp(text, help, enabled)\n"
                 L"Echo Len(text) & Mid(text, 3) & \"/\" & Len(help) & Mid(help, 2)\nEnd Sub\n"
                 L"Set help = WScript.CreateObject(\"VnDesk.HelpCallBack\")\n"
                 L"Connect help, \"help_\"\n"
                 L"help.RaiseHelpEvent \"a\" & Chr(0) & \"b\", Chr(0) & \"cd\", True");
    EXPECT_EQ(std::vector<std::wstring>{L"3b/3cd"}, script.Lines());
}

} // namespace
