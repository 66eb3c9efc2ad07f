// SPDX-License-Identifier: MIT
// The logon look-up; the doubled blanks are part of the text.
#include "logon/text/logon_statement.h"

#include "data/text/number_text.h"

namespace vndesk {

std::wstring LogonStatement(std::wstring_view name, double passwordCode, DatabaseKind dbKind) {
    return L"SELECT  *  FROM [User] WHERE ([Name]=" + SqlQuote(name, dbKind) +
           L") And ( [Password]=" + DoubleToText(passwordCode) + L")";
}

} // namespace vndesk
