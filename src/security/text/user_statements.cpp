// SPDX-License-Identifier: MIT
#include "security/text/user_statements.h"

namespace vndesk {

Statement UserNamedStatement(std::wstring_view name, ValueStyle style) {
    return StatementWriter(style) << L"SELECT * FROM [User] WHERE [Name]=" << Quoted{name};
}

Statement InsertUserStatement(const UserFields& user, double password, ValueStyle style) {
    return StatementWriter(style) << L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values("
                                  << Quoted{user.name} << L"," << Quoted{user.description} << L","
                                  << user.groupCode << L"," << password << L")";
}

Statement LoadUserStatement(std::wstring_view name, ValueStyle style) {
    return StatementWriter(style) << L"SELECT  *  FROM [User]  WHERE [Name]=" << Quoted{name};
}

Statement OtherUserNamedStatement(std::wstring_view name, std::wstring_view oldName,
                                  ValueStyle style) {
    return StatementWriter(style) << L"Select  * From [User] Where [Name]=" << Quoted{name}
                                  << L" And [Name] <> " << Quoted{oldName};
}

Statement UpdateUserStatement(const UserFields& user, std::optional<double> newPassword,
                              std::wstring_view oldName, ValueStyle style) {
    StatementWriter statement(style);
    statement << L"UPDATE [User] Set [Name]=" << Quoted{user.name} << L",[Dec]="
              << Quoted{user.description} << L",IdGroup=" << user.groupCode;
    if (newPassword)
        statement << L",[Password]=" << *newPassword;
    return statement << L" Where [Name]=" << Quoted{oldName};
}

Statement UsersAfterStatement(long code, ValueStyle style) {
    return StatementWriter(style) << L"Select * From [User] Where Code >" << code;
}

Statement UserWithCodeStatement(std::wstring_view code, ValueStyle style) {
    return StatementWriter(style) << L"Select * From [User] Where Code=" << Numbers{code};
}

Statement DeleteUserStatement(std::wstring_view name, ValueStyle style) {
    return StatementWriter(style) << L"Delete from [user] Where [Name]=" << Quoted{name};
}

} // namespace vndesk
