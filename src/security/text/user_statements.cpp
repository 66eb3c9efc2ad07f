// SPDX-License-Identifier: MIT
#include "security/text/user_statements.h"

#include "data/text/number_text.h"

namespace vndesk {

std::wstring UserNamedStatement(std::wstring_view name, DatabaseKind kind) {
    return L"SELECT * FROM [User] WHERE [Name]=" + SqlQuote(name, kind);
}

std::wstring InsertUserStatement(const UserFields& user, double password, DatabaseKind kind) {
    return L"Insert Into [User](Name,[Dec],IdGroup,[Password]) Values(" +
           SqlQuote(user.name, kind) + L"," + SqlQuote(user.description, kind) + L"," +
           std::to_wstring(user.groupCode) + L"," + DoubleToText(password) + L")";
}

std::wstring LoadUserStatement(std::wstring_view name, DatabaseKind kind) {
    return L"SELECT  *  FROM [User]  WHERE [Name]=" + SqlQuote(name, kind);
}

std::wstring OtherUserNamedStatement(std::wstring_view name, std::wstring_view oldName,
                                     DatabaseKind kind) {
    return L"Select  * From [User] Where [Name]=" + SqlQuote(name, kind) + L" And [Name] <> " +
           SqlQuote(oldName, kind);
}

std::wstring UpdateUserStatement(const UserFields& user, std::optional<double> newPassword,
                                 std::wstring_view oldName, DatabaseKind kind) {
    std::wstring statement = L"UPDATE [User] Set [Name]=" + SqlQuote(user.name, kind) + L",[Dec]=" +
                             SqlQuote(user.description, kind) + L",IdGroup=" +
                             std::to_wstring(user.groupCode);
    if (newPassword)
        statement += L",[Password]=" + DoubleToText(*newPassword);
    return statement + L" Where [Name]=" + SqlQuote(oldName, kind);
}

std::wstring UsersAfterStatement(long code) {
    return L"Select * From [User] Where Code >" + std::to_wstring(code);
}

std::wstring UserWithCodeStatement(std::wstring_view code) {
    return L"Select * From [User] Where Code=" + std::wstring(code);
}

std::wstring DeleteUserStatement(std::wstring_view name, DatabaseKind kind) {
    return L"Delete from [user] Where [Name]=" + SqlQuote(name, kind);
}

} // namespace vndesk
