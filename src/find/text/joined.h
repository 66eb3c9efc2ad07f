// SPDX-License-Identifier: MIT
// How the lines of a condition are put together, whatever each of them is written as.
#pragma once

#include <string>

#include "find/text/condition.h"

namespace vndesk {

// The first line is always part of the condition, those below only while they are valid. `join` is
// the line's word that joins it to the one above.
template <class LineText>
std::wstring Joined(const ConditionLines& lines, std::wstring ConditionLine::*join,
                    const std::wstring& defaultJoin, LineText lineText) {
    std::wstring condition = lineText(lines[0]);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (!CheckSql(lines[i]))
            continue;
        const std::wstring& word = lines[i].*join;
        condition += (word.empty() ? defaultJoin : word) + lineText(lines[i]);
    }
    return condition;
}

} // namespace vndesk
