// SPDX-License-Identifier: MIT
// Help texts and remarks taken apart.
#include "reference/idl.h"
#include "reference/remarks.h"

#include <algorithm>
#include <cctype>

namespace reference {

namespace {

bool IsWordEnd(char ch) {
    return !std::isalnum(static_cast<unsigned char>(ch)) && ch != '_';
}

std::string Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return std::string(text);
}

// "Error NUMBER: when" with a number of digits or a hexadecimal one; empty for other lines.
std::string ErrorNumber(std::string_view line) {
    constexpr std::string_view kStart = "Error ";
    if (!line.starts_with(kStart))
        return {};
    const std::size_t end = line.find(':');
    if (end == std::string_view::npos)
        return {};
    const std::string_view number = line.substr(kStart.size(), end - kStart.size());
    const bool valid = !number.empty() && std::isdigit(static_cast<unsigned char>(number[0])) &&
                       number.find(' ') == std::string_view::npos;
    return valid ? std::string(number) : std::string();
}

} // namespace

Help SplitHelp(const std::string& text, const std::vector<std::string>& names) {
    struct Mark {
        std::size_t at;
        std::string name;
    };
    std::vector<Mark> marks;
    for (const std::string& name : names) {
        const std::string mark = name + ": ";
        for (std::size_t at = text.find(mark); at != std::string::npos;
             at = text.find(mark, at + 1))
            if (at == 0 || IsWordEnd(text[at - 1])) {
                marks.push_back({at, name});
                break;
            }
    }
    std::sort(marks.begin(), marks.end(), [](const Mark& a, const Mark& b) { return a.at < b.at; });
    Help help;
    help.summary = Trimmed(text.substr(0, marks.empty() ? text.size() : marks.front().at));
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const std::size_t begin = marks[i].at + marks[i].name.size() + 2;
        const std::size_t end = i + 1 < marks.size() ? marks[i + 1].at : text.size();
        help.parts[marks[i].name] = Trimmed(text.substr(begin, end - begin));
    }
    return help;
}

Remarks ReadRemarks(const std::vector<std::string>& lines) {
    Remarks remarks;
    for (const std::string& line : lines) {
        if (const std::string number = ErrorNumber(line); !number.empty())
            remarks.errors.push_back({number, Trimmed(line.substr(line.find(':') + 1))});
        else if (line.starts_with("    ") && !remarks.errors.empty())
            remarks.errors.back().when += " " + Trimmed(line);
        else
            remarks.text += line + "\n";
    }
    while (remarks.text.ends_with("\n"))
        remarks.text.pop_back();
    return remarks;
}

} // namespace reference
