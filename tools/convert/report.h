// SPDX-License-Identifier: MIT
// The list of what was not converted, and in a dry run of what would be, as CSV: every field
// between quotes, lines with CR and LF.
#pragma once

#include <string>
#include <string_view>

#include "convert/judge.h"

namespace vndesk::convert {

class CsvReport {
public:
    CsvReport();

    void Add(std::wstring_view key, std::wstring_view column, std::wstring_view text,
             const Judged& judged);
    const std::wstring& Text() const { return text_; }

private:
    std::wstring text_;
};

} // namespace vndesk::convert
