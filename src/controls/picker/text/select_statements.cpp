// SPDX-License-Identifier: MIT
// The doubled blanks are part of the text.
#include "controls/picker/text/select_statements.h"

namespace vndesk {

std::wstring NamesBeginningStatement(std::wstring_view sqlName, std::wstring_view text,
                                     DatabaseKind dbKind) {
    return std::wstring(sqlName) + L"  Like " + Literal(text, L"LR", dbKind);
}

std::wstring CodeStatement(std::wstring_view sqlID, std::wstring_view code, DatabaseKind dbKind) {
    return std::wstring(sqlID) + L" = " + Literal(code, L"S", dbKind);
}

} // namespace vndesk
