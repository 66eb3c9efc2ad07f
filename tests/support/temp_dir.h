// SPDX-License-Identifier: MIT
// A scratch folder that goes with its owner.
#pragma once
#include <string>

namespace vndesk::test {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::wstring& Path() const { return path_; }
    std::wstring File(const std::wstring& name) const { return path_ + L"\\" + name; }

private:
    std::wstring path_;
};

} // namespace vndesk::test
