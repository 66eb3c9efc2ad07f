// SPDX-License-Identifier: MIT
#include "security/text/group_statements.h"

#include "data/text/statements.h"

namespace vndesk {

Statement GroupMembersStatement(long code, ValueStyle style) {
    return StatementWriter(style) << L"SELECT * FROM [USER] WHERE IdGroup=" << code;
}

Statement GroupStatement(std::wstring_view table, long code, ValueStyle style) {
    return StatementWriter(style) << L"Select * From " << table << L" Where Code=" << code;
}

Statement InsertGroupStatement(std::wstring_view table, std::wstring_view name,
                               std::wstring_view description, ValueStyle style) {
    if (style.KeepsTexts())
        return StatementWriter(style) << L"Insert Into " << table << L"([Name],[Des]) Values("
                                      << QuotedBare{name} << L"," << Trailed{description} << L")";
    const std::wstring insert =
        L"Insert Into " + std::wstring(table) + L"([Name]) Values('" + std::wstring(name) + L"')";
    return AddInsertColumn(insert, L"[Des]", description, style.kind);
}

Statement UpdateGroupStatement(std::wstring_view table, long code, std::wstring_view name,
                               std::wstring_view description, ValueStyle style) {
    if (style.KeepsTexts())
        return StatementWriter(style)
               << L"Update " << table << L" Set [Des]=" << Trailed{description} << L",[Name]="
               << QuotedBare{name} << L" Where [Code]=" << code;
    const std::wstring update = L"Update " + std::wstring(table) + L" Set [Name]='" +
                                std::wstring(name) + L"' Where [Code]=" + std::to_wstring(code);
    return AddUpdateAssignment(update, L"[Des]", description, style.kind);
}

Statement DeletedGroupsStatement(std::wstring_view table, std::wstring_view codes,
                                 ValueStyle style) {
    return StatementWriter(style) << L"Select * From " << table << L" Where Code In ("
                                  << Numbers{codes} << L") and (Code Not In (1,8))";
}

Statement DeleteGroupsStatement(std::wstring_view table, std::wstring_view codes,
                                ValueStyle style) {
    return StatementWriter(style) << L"Delete From " << table << L" Where Code In ("
                                  << Numbers{codes} << L") and (Code Not In (1,8))";
}

} // namespace vndesk
