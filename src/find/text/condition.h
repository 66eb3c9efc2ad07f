// SPDX-License-Identifier: MIT
// The search condition: four lines of field, operator and value, joined into SQL and into a text
// that the user reads.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "data/text/statement.h"

namespace vndesk {

// One line as it stands in the dialog. Indexes count from 0; -1 is none.
struct ConditionLine {
    long fieldIndex = -1;
    long fieldType = 0;     // type code of the field; 0 without one
    std::wstring fieldName; // in the statement
    std::wstring fieldText; // for the user
    long operatorIndex = -1;
    std::wstring operatorName;
    std::wstring operatorText;
    std::wstring value;    // as typed
    std::wstring joinName; // how the line joins the one above; empty counts as "And"
    std::wstring joinText;
    bool enabled = true;
};

inline constexpr std::size_t kConditionLines = 4;
using ConditionLines = std::array<ConditionLine, kConditionLines>;

// Whether a line is complete and its value fits the field.
bool CheckSql(const ConditionLine& line);

std::wstring GetSql(const ConditionLine& line, ValueStyle style);
std::wstring GetDisplay(const ConditionLine& line);

// Makes the counts of "(" and ")" equal; what is missing goes to the end, of either kind.
std::wstring GetBrackets(std::wstring_view text);

// The whole condition: the first line, then each valid one. A join word has no blanks around it:
// the lines' own brackets part it from them.
std::wstring GetRes(const ConditionLines& lines, ValueStyle style);
std::wstring GetDis(const ConditionLines& lines);

} // namespace vndesk
