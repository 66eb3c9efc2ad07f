// SPDX-License-Identifier: MIT
#include "convert/report.h"

#include <initializer_list>

#include "text/ascii_text.h"

namespace vndesk::convert {

namespace {

std::wstring Line(std::initializer_list<std::wstring_view> fields) {
    std::wstring line;
    for (const std::wstring_view field : fields)
        line += (line.empty() ? L"\"" : L",\"") + ReplaceEach(field, L'"', L"\"\"") + L"\"";
    return line + L"\r\n";
}

} // namespace

CsvReport::CsvReport()
    : text_(Line({L"state", L"key", L"column", L"reason", L"text", L"converted"})) {}

void CsvReport::Add(std::wstring_view key, std::wstring_view column, std::wstring_view text,
                    const Judged& judged) {
    text_ += Line({judged.verdict == Verdict::Convert ? L"convert" : L"doubtful", key, column,
                   NameOf(judged.doubt), text, judged.converted});
}

} // namespace vndesk::convert
