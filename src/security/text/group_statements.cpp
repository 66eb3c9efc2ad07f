// SPDX-License-Identifier: MIT
#include "security/text/group_statements.h"

#include "data/text/statements.h"

namespace vndesk {

std::wstring GroupMembersStatement(long code) {
    return L"SELECT * FROM [USER] WHERE IdGroup=" + std::to_wstring(code);
}

std::wstring GroupStatement(std::wstring_view table, long code) {
    return L"Select * From " + std::wstring(table) + L" Where Code=" + std::to_wstring(code);
}

std::wstring InsertGroupStatement(std::wstring_view table, std::wstring_view name,
                                  std::wstring_view description, DatabaseKind kind) {
    const std::wstring insert =
        L"Insert Into " + std::wstring(table) + L"([Name]) Values('" + std::wstring(name) + L"')";
    return AddInsertColumn(insert, L"[Des]", description, kind);
}

std::wstring UpdateGroupStatement(std::wstring_view table, long code, std::wstring_view name,
                                  std::wstring_view description, DatabaseKind kind) {
    const std::wstring update = L"Update " + std::wstring(table) + L" Set [Name]='" +
                                std::wstring(name) + L"' Where [Code]=" + std::to_wstring(code);
    return AddUpdateAssignment(update, L"[Des]", description, kind);
}

std::wstring DeleteGroupsStatement(std::wstring_view table, std::wstring_view codes) {
    return L"Delete From " + std::wstring(table) + L" Where Code In (" + std::wstring(codes) +
           L") and (Code Not In (1,8))";
}

} // namespace vndesk
