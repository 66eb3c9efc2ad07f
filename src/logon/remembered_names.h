// SPDX-License-Identifier: MIT
// The names that have logged on last, kept for the Windows user. Names only, never passwords.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vndesk {

class RememberedNames {
public:
    static constexpr size_t kMost = 5;

    // `key` is a path below HKEY_CURRENT_USER; with an empty one nothing is kept. A registry that
    // cannot be read or written is one without names.
    explicit RememberedNames(std::wstring key);

    bool AreKept() const { return !key_.empty(); }
    // The last one first.
    const std::vector<std::wstring>& Names() const { return names_; }

    void Add(std::wstring_view name);
    void Forget();

private:
    std::wstring key_;
    std::vector<std::wstring> names_;
};

} // namespace vndesk
