// SPDX-License-Identifier: MIT
#include "data/text/option_statements.h"

#include "data/text/statements.h"

namespace vndesk {

namespace {

constexpr wchar_t kDescription[] = L"Description";

std::wstring Text(std::wstring_view value, DatabaseKind dbKind) {
    return Literal(value, L"S", dbKind);
}

std::wstring Where(OptionName name, DatabaseKind dbKind) {
    return L" Where [Section]=" + Text(name.section, dbKind) + L" And KeyName=" +
           Text(name.key, dbKind);
}

} // namespace

std::wstring ReadOptionStatement(OptionName name, DatabaseKind dbKind) {
    return L"Select * From [Options]" + Where(name, dbKind);
}

std::wstring FindOptionStatement(OptionName name, DatabaseKind dbKind) {
    return L"Select * From Options" + Where(name, dbKind);
}

std::wstring InsertOptionStatement(OptionName name, std::wstring_view value,
                                   std::wstring_view description, DatabaseKind dbKind) {
    const std::wstring statement = L"Insert Into Options([Section],KeyName,KeyValue) Values(" +
                                   Text(name.section, dbKind) + L"," + Text(name.key, dbKind) +
                                   L"," + Text(value, dbKind) + L")";
    return description.empty() ? statement
                               : AddInsertColumn(statement, kDescription, description, dbKind);
}

std::wstring UpdateOptionStatement(OptionName name, std::wstring_view value,
                                   std::wstring_view description, DatabaseKind dbKind) {
    const std::wstring statement =
        L"Update Options Set KeyValue=" + Text(value, dbKind) + L" " + Where(name, dbKind);
    return description.empty() ? statement
                               : AddUpdateAssignment(statement, kDescription, description, dbKind);
}

} // namespace vndesk
