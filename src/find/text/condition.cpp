// SPDX-License-Identifier: MIT
// Lines of a search condition put together, for the engine and for the user.
#include "find/text/condition.h"

#include "data/text/date_text.h"
#include "data/text/dialect_names.h"
#include "data/text/number_text.h"
#include "find/text/captions.h"
#include "find/text/dialect_value.h"
#include "find/text/format_value.h"
#include "find/text/joined.h"
#include "text/ascii_text.h"
#include "text/capitals.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

bool NeedsNumber(long fieldType) {
    return fieldType == kFieldNumber || fieldType == kFieldAmount;
}

bool NeedsDate(long fieldType) {
    return fieldType == kFieldDate;
}

} // namespace

bool CheckSql(const ConditionLine& line) {
    // Blanks count: whoever types one may be looking for it.
    if (!line.enabled || line.value.empty() || line.fieldIndex < 0 || line.operatorIndex < 0)
        return false;
    if (NeedsNumber(line.fieldType))
        return IsNumericEntry(line.value);
    return !NeedsDate(line.fieldType) || IsDate(line.value);
}

std::wstring GetSql(const ConditionLine& line, ValueStyle style) {
    const std::wstring op = InCapitals(line.operatorName);
    const std::wstring_view value = TrimBlanks(line.value);
    if (!style.dialect)
        return GetBrackets(L"(" + line.fieldName + L"  " + op + L"  " +
                           FormatValue(value, line.fieldType, op, style.kind) + L")");
    // Brackets that were typed are letters of a literal.
    const std::wstring head =
        L"(" + CatalogueName(line.fieldName, *style.dialect) + L"  " + op + L"  ";
    const std::wstring tail = GetBrackets(head + L")").substr(head.size());
    return head + WriteValue(value, line.fieldType, op, *style.dialect) + tail;
}

std::wstring GetDisplay(const ConditionLine& line) {
    return L"(" + line.fieldText + L"  " + line.operatorText + L"  '" +
           std::wstring(TrimBlanks(line.value)) + L"')";
}

std::wstring GetBrackets(std::wstring_view text) {
    const long surplus = CountChar(text, L"(") - CountChar(text, L")");
    std::wstring balanced(text);
    balanced.append(static_cast<std::size_t>(surplus < 0 ? -surplus : surplus),
                    surplus < 0 ? L'(' : L')');
    return balanced;
}

std::wstring GetRes(const ConditionLines& lines, ValueStyle style) {
    return Joined(lines, &ConditionLine::joinName, L"And",
                  [style](const ConditionLine& line) { return GetSql(line, style); });
}

std::wstring GetDis(const ConditionLines& lines) {
    return Joined(lines, &ConditionLine::joinText, ToUncText(texts::kFindAnd, kToUnicode),
                  GetDisplay);
}

} // namespace vndesk
