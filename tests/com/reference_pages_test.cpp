// SPDX-License-Identifier: MIT
// The pages of the reference, made from the IDL's text, against the type library that hosts read.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>

#include "com/registered_dll.h"
#include "support/env.h"
#include "support/text.h"

using namespace vndesk;
using namespace vndesk::test;

namespace {

std::string Page(const std::wstring& name) {
    return ToUtf8(ReadUtf8File(SourceDir() + L"\\docs\\reference\\" + name + L".md"));
}

// A type library spells a name everywhere as it met it first, whatever the case of its letters.
std::size_t FindName(const std::string& text, const std::string& name) {
    const auto same = [](char a, char b) { return tolower(a) == tolower(b); };
    const auto found = std::search(text.begin(), text.end(), name.begin(), name.end(), same);
    return found == text.end() ? std::string::npos : static_cast<std::size_t>(found - text.begin());
}

// What stands below the heading of a member, up to the next heading.
std::string Section(const std::string& page, const std::string& name) {
    const std::size_t begin = FindName(page, "\n### " + name + "\n");
    if (begin == std::string::npos)
        return {};
    return page.substr(begin, page.find("\n##", begin + 4) - begin);
}

TEST(ReferencePagesTest, EveryMemberAndParameterOfTheTypeLibraryIsThere) {
    for (const RegisteredClass& entry : RegisteredClasses()) {
        const std::string page = Page(entry.name);
        EXPECT_NE(std::string::npos, page.find(ToUtf8(GuidText(entry.clsid))))
            << ToUtf8(entry.name);
        for (const Method& method : entry.methods) {
            const std::string section = Section(page, ToUtf8(method.name));
            EXPECT_FALSE(section.empty()) << ToUtf8(entry.name + L"." + method.name);
            // A property's new value has no name of its own in the type library.
            for (const Parameter& parameter : method.parameters)
                if (!parameter.result && !method.IsProperty()) {
                    EXPECT_NE(std::string::npos,
                              FindName(section, "| `" + ToUtf8(parameter.name) + "` |"))
                        << ToUtf8(entry.name + L"." + method.name + L"." + parameter.name);
                }
        }
    }
}

TEST(ReferencePagesTest, EveryEnumerationValueIsThere) {
    const std::string page = Page(L"types");
    const ComPtr<ITypeLib> library = RegisteredTypeLibrary();
    int values = 0;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind;
        ComPtr<ITypeInfo> type;
        ASSERT_HRESULT_SUCCEEDED(library->GetTypeInfoType(i, &kind));
        if (kind != TKIND_ENUM)
            continue;
        ASSERT_HRESULT_SUCCEEDED(library->GetTypeInfo(i, &type));
        VARDESC* value = nullptr;
        for (UINT v = 0; SUCCEEDED(type->GetVarDesc(v, &value)); ++v) {
            BSTR name = nullptr;
            UINT count = 0;
            EXPECT_HRESULT_SUCCEEDED(type->GetNames(value->memid, &name, 1, &count));
            const std::string row = "| `" + ToUtf8(name ? name : L"") + "` | " +
                                    std::to_string(V_I4(value->lpvarValue)) + " |";
            EXPECT_NE(std::string::npos, page.find(row)) << row;
            SysFreeString(name);
            type->ReleaseVarDesc(value);
            ++values;
        }
    }
    EXPECT_EQ(61, values);
}

} // namespace
