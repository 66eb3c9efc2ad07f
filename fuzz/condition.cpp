// SPDX-License-Identifier: MIT
// For each of the four lines a field's name, its type, an operator, a value and a joining word. The
// brackets of a condition are paired, and what users type into valid lines cannot leave a quote
// open. With parameters it does not reach the text at all.
#include "support/input.h"
#include "support/sql_text.h"

#include <algorithm>

#include "ado/text/date_value.h"
#include "find/text/condition.h"
#include "find/text/format_value.h"
#include "find/text/parameterized_condition.h"

namespace vndesk::fuzz {

namespace {

bool IsPaired(std::wstring_view text) {
    return std::count(text.begin(), text.end(), L'(') == std::count(text.begin(), text.end(), L')');
}

void CheckBrackets(const std::wstring& text) {
    const std::wstring balanced = GetBrackets(text);
    MUST(IsPaired(balanced) && balanced.starts_with(text));
    MUST(balanced.size() <= 2 * text.size());
    MUST(GetBrackets(balanced) == balanced);
}

// What users type is in the values and not in the text.
void CheckParameterized(ConditionLines lines, Engine engine) {
    const Statement condition = GetParameterized(lines, engine);
    for (ConditionLine& line : lines) {
        line.fieldName = L"F";
        line.operatorName = L"=";
        line.joinName = L"and";
    }
    const Statement plain = GetParameterized(lines, engine);
    MUST(plain.text.find_first_not_of(L"(F =?,)and") == std::wstring::npos);
    MUST(plain.values.size() == static_cast<std::size_t>(CountChar(plain.text, L"?")));
    MUST(condition.values.size() <= static_cast<std::size_t>(CountChar(condition.text, L"?")));
}

// Fields whose entries are written as they are typed and not checked.
bool IsVerbatim(long fieldType) {
    return fieldType == 1;
}

} // namespace

void RunOne(Input& input) {
    ConditionLines lines;
    bool safe = true;
    for (ConditionLine& line : lines) {
        line.fieldIndex = line.operatorIndex = 0;
        line.fieldName = line.fieldText = input.Text();
        line.fieldType = input.Number(0, 14);
        line.operatorName = line.operatorText = input.Text();
        line.value = input.Text();
        line.joinName = line.joinText = input.Text();
        safe = safe && !IsVerbatim(line.fieldType) && LiteralsOf(L"(" + line.fieldName + L" ") &&
               LiteralsOf(L" " + line.operatorName + L" ") &&
               LiteralsOf(L")" + line.joinName + L"(");
        CheckBrackets(line.value);
        MUST(CountChar(line.value, L"(") == std::count(line.value.begin(), line.value.end(), L'('));
    }
    for (const DatabaseKind kind : {DatabaseKind::Jet, DatabaseKind::SqlServer}) {
        std::wstring whole;
        for (const ConditionLine& line : lines) {
            const std::wstring sql = GetSql(line, kind);
            MUST(IsPaired(sql) && sql.front() == L'(');
            if (safe && CheckSql(line))
                MUST(LiteralsOf(sql));
        }
        const std::wstring condition = GetRes(lines, kind);
        MUST(condition.starts_with(GetSql(lines[0], kind)));
        if (std::all_of(lines.begin(), lines.end(),
                        [](const ConditionLine& line) { return IsPaired(line.joinName); }))
            MUST(IsPaired(condition));
        if (safe && CheckSql(lines[0]))
            MUST(LiteralsOf(condition));
    }
    MUST(GetDis(lines).starts_with(GetDisplay(lines[0])));
    for (const Engine engine : {Engine::Jet, Engine::SqlServer, Engine::PostgreSql})
        CheckParameterized(lines, engine);
}

} // namespace vndesk::fuzz
