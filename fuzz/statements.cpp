// SPDX-License-Identifier: MIT
// Section, key, value, description, then any statement. What is typed stays inside its literals,
// and patching a statement only ever adds to it.
#include "support/input.h"
#include "support/sql_text.h"

#include <stdexcept>

#include "controls/picker/text/select_statements.h"
#include "data/text/option_statements.h"
#include "data/text/statements.h"
#include "find/text/catalogue.h"
#include "text/ascii_text.h"

namespace vndesk::fuzz {

namespace {

using Values = std::vector<std::wstring>;

void CheckPatches(const std::wstring& statement, const std::wstring& column,
                  const std::wstring& value, DatabaseKind kind) {
    const std::size_t added = column.size() + FieldValue(value, kFieldText, kind).size() + 2;
    const std::wstring update = AddUpdateAssignment(statement, column, value, kind);
    const std::size_t set = FindIgnoringCase(statement, L"SET");
    if (set == std::wstring::npos) {
        MUST(update.empty());
    } else {
        MUST(update.size() == statement.size() + added);
        MUST(update.starts_with(statement.substr(0, set + 4)));
    }
    try {
        const std::wstring insert = AddInsertColumn(statement, column, value, kind);
        MUST(insert.size() == statement.size() + added);
        MUST(insert.ends_with(statement.substr(statement.rfind(L')'))));
    } catch (const std::invalid_argument&) {
        const std::size_t values = FindIgnoringCase(statement, L"VALUES");
        MUST(values == std::wstring::npos || statement.rfind(L')', values) == std::wstring::npos);
    }
}

} // namespace

void RunOne(Input& input) {
    const std::wstring section = input.Text(), key = input.Text(), value = input.Text(),
                       description = input.Text(), statement = input.RestText();
    const OptionName name{section, key};
    const std::wstring s = Stored(section), k = Stored(key), v = Stored(value);
    for (const DatabaseKind kind : {DatabaseKind::Jet, DatabaseKind::SqlServer}) {
        MUST(LiteralsOf(ReadOptionStatement(name, kind).text) == (Values{s, k}));
        MUST(LiteralsOf(FindOptionStatement(name, kind).text) == (Values{s, k}));
        Values inserted{s, k, v}, updated{v, s, k};
        if (!description.empty()) {
            inserted.push_back(Stored(description) + L" ");
            updated.insert(updated.begin(), Stored(description) + L" ");
        }
        MUST(LiteralsOf(InsertOptionStatement(name, value, description, kind).text) == inserted);
        MUST(LiteralsOf(UpdateOptionStatement(name, value, description, kind).text) == updated);
        MUST(LiteralsOf(LookUpStatement(L"KhachHang", value, kind).text) == (Values{v + L"%"}));
        MUST(LiteralsOf(NamesBeginningStatement(L"Select [Name]", value, kind).text) ==
             (Values{v + L"%"}));
        MUST(LiteralsOf(CodeStatement(L"Select [Code]", value, kind).text) == (Values{v}));
        CheckPatches(statement, key, value, kind);
    }
}

} // namespace vndesk::fuzz
