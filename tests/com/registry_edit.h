// SPDX-License-Identifier: MIT
// Registry entries as a test needs them: written and deleted by full names.
#pragma once
#include <gtest/gtest.h>
#include <string>
#include <windows.h>

#include "support/text.h"

namespace vndesk::test {

inline void SetText(HKEY root, const std::wstring& key, const wchar_t* name,
                    const std::wstring& text, REGSAM view = 0) {
    HKEY opened = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_WRITE | view,
                                             nullptr, &opened, nullptr));
    EXPECT_EQ(ERROR_SUCCESS,
              RegSetValueExW(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                             static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
    RegCloseKey(opened);
}

// By full names: below an opened key the other view is not kept.
inline void DeleteTree(HKEY root, const std::wstring& key, REGSAM view = 0) {
    for (;;) {
        HKEY opened = nullptr;
        wchar_t name[256];
        if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS)
            return;
        const LSTATUS found = RegEnumKeyW(opened, 0, name, 256);
        RegCloseKey(opened);
        if (found != ERROR_SUCCESS)
            break;
        DeleteTree(root, key + L"\\" + name, view);
    }
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyExW(root, key.c_str(), view, 0)) << ToUtf8(key);
}

} // namespace vndesk::test
