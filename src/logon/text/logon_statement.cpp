// SPDX-License-Identifier: MIT
// The logon look-up; the doubled blanks are part of the text.
#include "logon/text/logon_statement.h"

namespace vndesk {

Statement LogonStatement(std::wstring_view name, double passwordCode, ValueStyle style) {
    return StatementWriter(style) << L"SELECT  *  FROM [User] WHERE ([Name]=" << Quoted{name}
                                  << L") And ( [Password]=" << passwordCode << L")";
}

} // namespace vndesk
