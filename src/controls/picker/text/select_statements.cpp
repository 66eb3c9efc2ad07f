// SPDX-License-Identifier: MIT
// The doubled blanks are part of the text.
#include "controls/picker/text/select_statements.h"

namespace vndesk {

Statement NamesBeginningStatement(std::wstring_view sqlName, std::wstring_view text,
                                  ValueStyle style, const std::optional<Pattern>& pattern) {
    StatementWriter statement(style);
    statement << AsGiven{sqlName};
    AppendLike(statement, pattern, text);
    return statement;
}

Statement CodeStatement(std::wstring_view sqlID, std::wstring_view code, ValueStyle style) {
    return StatementWriter(style) << AsGiven{sqlID} << L" = " << Escaped{code};
}

} // namespace vndesk
