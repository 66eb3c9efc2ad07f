// SPDX-License-Identifier: MIT
// The doubled blanks are part of the text.
#include "controls/picker/text/select_statements.h"

namespace vndesk {

Statement NamesBeginningStatement(std::wstring_view sqlName, std::wstring_view text,
                                  ValueStyle style) {
    return StatementWriter(style) << AsGiven{sqlName} << L"  Like " << Beginning{text};
}

Statement CodeStatement(std::wstring_view sqlID, std::wstring_view code, ValueStyle style) {
    return StatementWriter(style) << AsGiven{sqlID} << L" = " << Escaped{code};
}

} // namespace vndesk
