// SPDX-License-Identifier: MIT
#include "data/text/option_statements.h"

#include "data/text/statements.h"

namespace vndesk {

namespace {

constexpr wchar_t kDescription[] = L"Description";

Statement WithName(StatementWriter& statement, OptionName name) {
    return statement << L" Where [Section]=" << Escaped{name.section} << L" And KeyName="
                     << Escaped{name.key};
}

Statement Named(std::wstring_view select, OptionName name, ValueStyle style) {
    StatementWriter statement(style);
    return WithName(statement << select, name);
}

Statement Insert(OptionName name, std::wstring_view value, ValueStyle style) {
    return StatementWriter(style) << L"Insert Into Options([Section],KeyName,KeyValue) Values("
                                  << Escaped{name.section} << L"," << Escaped{name.key} << L","
                                  << Escaped{value} << L")";
}

Statement InsertDescribed(OptionName name, std::wstring_view value, std::wstring_view description,
                          ValueStyle style) {
    if (!style.KeepsTexts())
        return AddInsertColumn(Insert(name, value, style).text, kDescription, description,
                               style.kind);
    return StatementWriter(style)
           << L"Insert Into Options([Section],KeyName,KeyValue,Description) Values("
           << Escaped{name.section} << L"," << Escaped{name.key} << L"," << Escaped{value} << L","
           << Trailed{description} << L")";
}

Statement UpdateDescribed(OptionName name, std::wstring_view value, std::wstring_view description,
                          ValueStyle style) {
    if (!style.KeepsTexts())
        return AddUpdateAssignment(UpdateOptionStatement(name, value, L"", style).text,
                                   kDescription, description, style.kind);
    StatementWriter statement(style);
    statement << L"Update Options Set Description=" << Trailed{description} << L",KeyValue="
              << Escaped{value} << L" ";
    return WithName(statement, name);
}

} // namespace

Statement ReadOptionStatement(OptionName name, ValueStyle style) {
    return Named(L"Select * From [Options]", name, style);
}

Statement FindOptionStatement(OptionName name, ValueStyle style) {
    return Named(L"Select * From Options", name, style);
}

Statement InsertOptionStatement(OptionName name, std::wstring_view value,
                                std::wstring_view description, ValueStyle style) {
    return description.empty() ? Insert(name, value, style)
                               : InsertDescribed(name, value, description, style);
}

Statement UpdateOptionStatement(OptionName name, std::wstring_view value,
                                std::wstring_view description, ValueStyle style) {
    if (!description.empty())
        return UpdateDescribed(name, value, description, style);
    StatementWriter statement(style);
    statement << L"Update Options Set KeyValue=" << Escaped{value} << L" ";
    return WithName(statement, name);
}

} // namespace vndesk
