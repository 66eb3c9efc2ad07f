// SPDX-License-Identifier: MIT
// Registration and its way back, with the registered DLL itself. Every test leaves the library
// registered as it was.
#include <algorithm>
#include <gtest/gtest.h>

#include "com/registered_dll.h"
#include "com/registry_edit.h"
#include "support/check_hr.h"
#include "support/reliability.h"
#include "support/temp_dir.h"
#include "support/text.h"

namespace {

using namespace vndesk::test;

constexpr wchar_t kClasses[] = L"Software\\Classes";
#ifdef _WIN64
constexpr REGSAM kOtherView = KEY_WOW64_32KEY;
constexpr wchar_t kPlatform[] = L"win64";
#else
constexpr REGSAM kOtherView = KEY_WOW64_64KEY;
constexpr wchar_t kPlatform[] = L"win32";
#endif

HRESULT Register() {
    return DllExport<DllMoment>("DllRegisterServer")();
}
HRESULT Unregister() {
    return DllExport<DllMoment>("DllUnregisterServer")();
}
HRESULT Install(BOOL install, const wchar_t* arguments) {
    return DllExport<HRESULT WINAPI(BOOL, LPCWSTR)>("DllInstall")(install, arguments);
}

std::wstring Under(const std::wstring& key) {
    return std::wstring(kClasses) + L"\\" + key;
}

std::wstring Join(const std::wstring& key, const wchar_t* rest) {
    return Under(key + L"\\" + rest);
}

// All classes of the machine: some ten thousand keys, so not for every test.
RegistryTree MachineTree() {
    return ReadTree(HKEY_LOCAL_MACHINE, kClasses);
}

class RegistrationTest : public testing::Test {
protected:
    void SetUp() override {
        for (const RegisteredClass& entry : RegisteredClasses()) {
            classKeys_.push_back(L"CLSID\\" + GuidText(entry.clsid));
            names_.push_back(entry.progId);
            names_.push_back(entry.progId + L".1");
            interfaceKeys_.push_back(L"Interface\\" + GuidText(entry.defaultInterface));
            for (const IID& older : entry.olderInterfaces)
                interfaceKeys_.push_back(L"Interface\\" + GuidText(older));
            if (entry.hasEvents)
                interfaceKeys_.push_back(L"Interface\\" + GuidText(entry.events));
        }
        clsid_ = classKeys_.at(0);
        progId_ = names_.at(0);
        const std::wstring id = RegistryText(HKEY_LOCAL_MACHINE, Join(clsid_, L"TypeLib"));
        typeLibrary_ = L"TypeLib\\" + id;
        server_ = Join(typeLibrary_ + L"\\1.1\\0", kPlatform);
        before_ = OwnTree();
        ASSERT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, server_));
    }

    // However the test ends, the next one finds the library registered.
    void TearDown() override {
        for (const auto& undo : undo_)
            undo();
        EXPECT_SUCCEEDED(Register());
        ExpectSame(before_, OwnTree());
    }

    // What the library itself wrote.
    RegistryTree OwnTree() const {
        RegistryTree tree;
        const auto add = [&](const std::wstring& key) {
            tree.merge(ReadTree(HKEY_LOCAL_MACHINE, Under(key)));
        };
        std::for_each(classKeys_.begin(), classKeys_.end(), add);
        std::for_each(names_.begin(), names_.end(), add);
        std::for_each(interfaceKeys_.begin(), interfaceKeys_.end(), add);
        add(typeLibrary_);
        // Wine keeps the folder of an earlier registration.
        std::erase_if(tree, [](const auto& entry) { return entry.first.ends_with(L"\\HELPDIR|"); });
        return tree;
    }

    void AtEnd(std::function<void()> undo) { undo_.push_back(std::move(undo)); }

    // Only the differences are worth reading.
    static void ExpectSame(const RegistryTree& wanted, const RegistryTree& found) {
        for (const auto& [key, value] : wanted) {
            const auto at = found.find(key);
            if (at == found.end())
                ADD_FAILURE() << "missing: " << ToUtf8(key);
            else
                EXPECT_EQ(value, at->second) << ToUtf8(key);
        }
        for (const auto& [key, value] : found)
            if (wanted.find(key) == wanted.end())
                ADD_FAILURE() << "too much: " << ToUtf8(key);
    }

    bool IsOwn(std::wstring entry) const {
        // The platform writes a type library into both views at once.
        constexpr std::wstring_view kView = L"\\Wow6432Node";
        if (const size_t at = entry.find(kView); at != std::wstring::npos)
            entry.erase(at, kView.size());
        const auto below = [&](const std::wstring& key) {
            const std::wstring full = Under(key);
            return entry.size() >= full.size() &&
                   CompareStringOrdinal(entry.c_str(), static_cast<int>(full.size()), full.c_str(),
                                        static_cast<int>(full.size()), TRUE) == CSTR_EQUAL &&
                   (entry.size() == full.size() || entry[full.size()] == L'\\' ||
                    entry[full.size()] == L'|');
        };
        const auto anyBelow = [&](const std::vector<std::wstring>& keys) {
            return std::any_of(keys.begin(), keys.end(), below);
        };
        return anyBelow(classKeys_) || anyBelow(names_) || anyBelow(interfaceKeys_) ||
               below(typeLibrary_);
    }

    bool IsRegistered(HKEY root = HKEY_LOCAL_MACHINE) const {
        bool any = false;
        for (const std::wstring& key : classKeys_)
            any |= KeyExists(root, Under(key));
        for (const std::wstring& name : names_)
            any |= KeyExists(root, Under(name));
        return any;
    }

    std::vector<std::wstring> classKeys_, names_, interfaceKeys_;
    std::wstring clsid_, progId_, typeLibrary_;
    std::wstring server_; // the key that names the type library's file
    RegistryTree before_;

private:
    std::vector<std::function<void()>> undo_;
};

TEST_F(RegistrationTest, ComesBackExactlyAsItWas) {
    // A platform that keeps some values of an earlier registration shall not do so now.
    Unregister();
    Register();
    const RegistryTree before = MachineTree();
    EXPECT_SUCCEEDED(Unregister());
    EXPECT_FALSE(IsRegistered());
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, server_));
    CLSID clsid;
    EXPECT_FAILED(CLSIDFromProgID(progId_.c_str(), &clsid));
    EXPECT_SUCCEEDED(Register());
    ExpectSame(before, MachineTree());
}

TEST_F(RegistrationTest, RegisteringTwiceChangesNothing) {
    EXPECT_SUCCEEDED(Register());
    EXPECT_SUCCEEDED(Register());
    ExpectSame(before_, OwnTree());
}

TEST_F(RegistrationTest, RegisteringAgainAndAgainChangesNothing) {
    const int rounds = Rounds(5, 100);
    for (int i = 0; i < rounds; ++i)
        EXPECT_SUCCEEDED(Register());
    ExpectSame(before_, OwnTree());
    for (int i = 0; i < rounds; ++i) {
        EXPECT_SUCCEEDED(Unregister());
        EXPECT_SUCCEEDED(Register());
    }
    ExpectSame(before_, OwnTree());
    TellFigures(2 * rounds, " registrations");
}

TEST_F(RegistrationTest, UnregisteringTakesOutOwnKeysOnly) {
    const std::wstring beside[] = {
        Under(progId_ + L"Other"),
        Under(progId_ + L".2"),
        Under(L"CLSID\\{5D1A1E66-0B5E-4C1C-9D0A-335B8E620177}"),
    };
    for (const std::wstring& key : beside) {
        SetText(HKEY_LOCAL_MACHINE, key, nullptr, L"của người khác");
        AtEnd([key] { DeleteTree(HKEY_LOCAL_MACHINE, key); });
    }
    RegistryTree wanted = MachineTree();
    std::erase_if(wanted, [this](const auto& entry) { return IsOwn(entry.first); });
    EXPECT_SUCCEEDED(Unregister());
    ExpectSame(wanted, MachineTree());
}

TEST_F(RegistrationTest, UnregisteringTwiceIsNoError) {
    EXPECT_SUCCEEDED(Unregister());
    EXPECT_SUCCEEDED(Unregister());
    EXPECT_FALSE(IsRegistered());
}

TEST_F(RegistrationTest, NamesStayWhileTheOtherBitnessIsRegistered) {
    const std::wstring other = Join(clsid_, L"InprocServer32");
    // A platform without a second view would show the own key.
    if (KeyExists(HKEY_LOCAL_MACHINE, other, kOtherView))
        GTEST_SKIP() << "the other bitness is registered, or the registry has one view only";
    SetText(HKEY_LOCAL_MACHINE, other, nullptr, L"C:\\other\\vndesk.dll", kOtherView);
    AtEnd([this] { DeleteTree(HKEY_LOCAL_MACHINE, Under(clsid_), kOtherView); });
    ASSERT_NE(L"C:\\other\\vndesk.dll", RegistryText(HKEY_LOCAL_MACHINE, other));

    EXPECT_SUCCEEDED(Unregister());
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Under(clsid_)));
    EXPECT_EQ(L"C:\\other\\vndesk.dll",
              RegistryText(HKEY_LOCAL_MACHINE, other, nullptr, kOtherView));
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, Join(progId_, L"CLSID")));
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, Join(progId_ + L".1", L"CLSID")));
    // The class that the other one does not have goes whole.
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Under(names_.at(2))));

    DeleteTree(HKEY_LOCAL_MACHINE, Under(clsid_), kOtherView);
    EXPECT_SUCCEEDED(Unregister());
    EXPECT_FALSE(IsRegistered()) << "the last one takes the names with it";
}

TEST_F(RegistrationTest, AnotherCopyOfTheLibraryStaysRegistered) {
    const TempDir folder;
    const std::wstring copy = folder.File(L"vndesk.dll");
    ASSERT_TRUE(CopyFileW(RegisteredDllPath().c_str(), copy.c_str(), TRUE));
    const std::wstring server = Join(clsid_, L"InprocServer32");
    SetText(HKEY_LOCAL_MACHINE, server, nullptr, copy);
    SetText(HKEY_LOCAL_MACHINE, server_, nullptr, copy);
    EXPECT_SUCCEEDED(Unregister());
    EXPECT_EQ(copy, RegistryText(HKEY_LOCAL_MACHINE, server));
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, Under(progId_)));
    EXPECT_EQ(copy, RegistryText(HKEY_LOCAL_MACHINE, server_));
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Under(classKeys_.at(1)))) << "its own class";
}

TEST_F(RegistrationTest, NameThatAnotherProgramTookStays) {
    SetText(HKEY_LOCAL_MACHINE, Join(progId_, L"CLSID"), nullptr,
            L"{5D1A1E66-0B5E-4C1C-9D0A-335B8E620177}");
    EXPECT_SUCCEEDED(Unregister());
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Under(clsid_)));
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, Under(progId_)));
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Under(progId_ + L".1")));
}

TEST_F(RegistrationTest, FailureTakesBackWhatWasWritten) {
    ASSERT_SUCCEEDED(Unregister());
    // A volatile key takes no lasting one below it, so the last name cannot be written.
    const std::wstring blocked = Under(names_.at(names_.size() - 2));
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS,
              RegCreateKeyExW(HKEY_LOCAL_MACHINE, blocked.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_WRITE, nullptr, &key, nullptr));
    RegCloseKey(key);
    AtEnd([blocked] { DeleteTree(HKEY_LOCAL_MACHINE, blocked); });

    EXPECT_HR(HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE), Register());
    DeleteTree(HKEY_LOCAL_MACHINE, blocked);
    EXPECT_FALSE(IsRegistered());
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Under(typeLibrary_)));
}

// A key that nobody may open until the guard goes.
class LockedKey {
public:
    explicit LockedKey(const std::wstring& name) {
        EXPECT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_LOCAL_MACHINE, name.c_str(), 0,
                                               READ_CONTROL | WRITE_DAC, &key_));
        SECURITY_DESCRIPTOR nobody;
        BYTE empty[sizeof(ACL)];
        EXPECT_TRUE(InitializeSecurityDescriptor(&nobody, SECURITY_DESCRIPTOR_REVISION));
        EXPECT_TRUE(InitializeAcl(reinterpret_cast<ACL*>(empty), sizeof empty, ACL_REVISION));
        EXPECT_TRUE(SetSecurityDescriptorDacl(&nobody, TRUE, reinterpret_cast<ACL*>(empty), FALSE));
        EXPECT_EQ(ERROR_SUCCESS, RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, &nobody));
    }
    ~LockedKey() {
        SECURITY_DESCRIPTOR everybody;
        InitializeSecurityDescriptor(&everybody, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&everybody, TRUE, nullptr, FALSE);
        EXPECT_EQ(ERROR_SUCCESS, RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, &everybody));
        RegCloseKey(key_);
    }
    LockedKey(const LockedKey&) = delete;
    LockedKey& operator=(const LockedKey&) = delete;

private:
    HKEY key_ = nullptr;
};

TEST_F(RegistrationTest, KeyThatCannotBeDeletedStopsNoOther) {
    // Wine lets keys without others below them be deleted all the same.
    const auto control = std::find(names_.begin(), names_.end(), L"VnDesk.DataCombo1");
    ASSERT_NE(names_.end(), control);
    const std::wstring whole = classKeys_.at((control - names_.begin()) / 2);
    const std::wstring below = Join(whole, L"MiscStatus");
    {
        const LockedKey locked(below), lockedName(Under(progId_));
        const HRESULT taken = Unregister();
        EXPECT_HR(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), taken) << "it is told at the end";
    }
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, Under(progId_)));
    EXPECT_TRUE(KeyExists(HKEY_LOCAL_MACHINE, below));
    for (const wchar_t* beside : {L"Control", L"InprocServer32", L"ToolboxBitmap32", L"Version"})
        EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Join(whole, beside))) << ToUtf8(beside);
    for (const std::wstring& key : classKeys_)
        if (key != whole) {
            EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Under(key))) << ToUtf8(key);
        }
    for (const std::wstring& name : names_)
        if (name != progId_) {
            EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, Under(name))) << ToUtf8(name);
        }
    EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, server_));
    EXPECT_SUCCEEDED(Unregister()) << "the next time";
    EXPECT_FALSE(IsRegistered());
}

// --- for one user ---

TEST_F(RegistrationTest, ForOneUserIsWrittenForThatUserAndTakenBack) {
    const auto userTree = [] {
        RegistryTree tree = ReadTree(HKEY_CURRENT_USER, kClasses);
        // A new user has none of these; empty ones may stay.
        for (const std::wstring& key : {std::wstring(kClasses), Under(L"CLSID")})
            tree.erase(key);
        return tree;
    };
    const RegistryTree userBefore = userTree();
    AtEnd([] { Install(FALSE, L"user"); });
    EXPECT_SUCCEEDED(Install(TRUE, L"user"));
    for (size_t i = 0; i < classKeys_.size(); ++i) {
        const std::wstring key = Under(classKeys_[i]);
        EXPECT_EQ(RegisteredDllPath(), RegistryText(HKEY_CURRENT_USER, key + L"\\InprocServer32"));
        EXPECT_EQ(L"Apartment",
                  RegistryText(HKEY_CURRENT_USER, key + L"\\InprocServer32", L"ThreadingModel"));
        for (const std::wstring& name : {names_[2 * i], names_[2 * i + 1]})
            EXPECT_EQ(classKeys_[i],
                      L"CLSID\\" + RegistryText(HKEY_CURRENT_USER, Join(name, L"CLSID")));
    }
    EXPECT_SUCCEEDED(Install(FALSE, L"USER"));
    EXPECT_FALSE(IsRegistered(HKEY_CURRENT_USER));
    ExpectSame(userBefore, userTree());
    // What is registered for all users is not this user's to take away.
    ExpectSame(before_, OwnTree());
}

TEST_F(RegistrationTest, InstallWithoutAUserIsForTheMachine) {
    EXPECT_SUCCEEDED(Install(FALSE, nullptr));
    EXPECT_FALSE(IsRegistered());
    EXPECT_SUCCEEDED(Install(TRUE, L""));
    ExpectSame(before_, OwnTree());
    EXPECT_FALSE(IsRegistered(HKEY_CURRENT_USER));
}

TEST_F(RegistrationTest, InstallRefusesWordsThatItDoesNotKnow) {
    for (const wchar_t* word : {L"users", L"u", L" user", L"user ", L"machine", L"\"user\""}) {
        EXPECT_HR(E_INVALIDARG, Install(FALSE, word)) << ToUtf8(word);
        ExpectSame(before_, OwnTree());
    }
    ASSERT_SUCCEEDED(Unregister());
    for (const wchar_t* word : {L"users", L"machine"})
        EXPECT_HR(E_INVALIDARG, Install(TRUE, word)) << ToUtf8(word);
    EXPECT_FALSE(IsRegistered());
    EXPECT_FALSE(IsRegistered(HKEY_CURRENT_USER));
}

} // namespace
