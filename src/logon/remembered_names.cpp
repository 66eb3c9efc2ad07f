// SPDX-License-Identifier: MIT
#include "logon/remembered_names.h"

#include <windows.h>

#include "comkit/base/handles.h"
#include "comkit/base/upper_case.h"

namespace vndesk {

namespace {

constexpr wchar_t kValue[] = L"LogonNames";

bool AreEqual(const std::wstring& a, std::wstring_view b) {
    return UpperCase(a) == UpperCase(std::wstring(b));
}

} // namespace

RememberedNames::RememberedNames(std::wstring key) : key_(std::move(key)) {
    if (!AreKept())
        return;
    // Longer than five names can be: what is there has not been written here.
    wchar_t texts[4096] = {};
    DWORD bytes = sizeof texts - 2 * sizeof(wchar_t);
    if (RegGetValueW(HKEY_CURRENT_USER, key_.c_str(), kValue, RRF_RT_REG_MULTI_SZ, nullptr, texts,
                     &bytes) != ERROR_SUCCESS)
        return;
    for (const wchar_t* name = texts; *name && names_.size() < kMost;
         name += names_.back().size() + 1)
        names_.emplace_back(name);
}

void RememberedNames::Add(std::wstring_view name) {
    // A list of texts ends with an empty one.
    if (!AreKept() || name.empty())
        return;
    std::erase_if(names_, [&](const std::wstring& kept) { return AreEqual(kept, name); });
    names_.emplace(names_.begin(), name);
    if (names_.size() > kMost)
        names_.pop_back();
    std::wstring texts;
    for (const std::wstring& kept : names_)
        texts.append(kept).push_back(L'\0');
    texts.push_back(L'\0');
    RegSetKeyValueW(HKEY_CURRENT_USER, key_.c_str(), kValue, REG_MULTI_SZ, texts.data(),
                    static_cast<DWORD>(texts.size() * sizeof(wchar_t)));
}

void RememberedNames::Forget() {
    names_.clear();
    if (AreKept())
        RegDeleteKeyValueW(HKEY_CURRENT_USER, key_.c_str(), kValue);
}

} // namespace vndesk
