// SPDX-License-Identifier: MIT
#include "reliability/database_rules.h"

namespace vndesk::test {
namespace {

constexpr const wchar_t* kUntouched[] = {L"menu",    L"submenu",   L"options",
                                         L"lstfld",  L"operator",  L"khachhang",
                                         L"hanghoa", L"tinhthanh", L"nhomhang"};

// Each statement counts what breaks the rule; both engines read it.
struct Rule {
    const wchar_t* name;
    const wchar_t* count;
};

constexpr Rule kRules[] = {
    {L"no two users have one name",
     L"select count(*) from (select name from \"user\" group by name having count(*)>1) d"},
    {L"every user has a name and a password code",
     L"select count(*) from \"user\" where name is null or password is null or password<0"},
    {L"the main administrator is there", L"select 1-count(*) from \"user\" where code=3"},
    {L"the built-in groups are there", L"select 2-count(*) from groups where code in (1,8)"},
    {L"every group has a name", L"select count(*) from groups where name is null"},
    {L"masks name commands only",
     L"select count(*) from groups where p1 not between 0 and 15 or p2 not between 0 and 63 or p3 "
     L"not between 0 and 31"},
};

// A group may be deleted while it has users, who keep its number.
constexpr Rule kUsersOfGroups[] = {
    {L"users belong to groups that are or were there",
     L"select count(*) from \"user\" where idgroup is null or idgroup<1 or "
     L"idgroup>(select seq from sqlite_sequence where name='Groups')"},
    {L"users belong to groups that are or were there",
     L"select count(*) from \"user\" where idgroup is null or idgroup<1 or "
     L"idgroup>(select last_value from groups_code_seq)"}};

// SQLite keeps any type in any column.
constexpr Rule kTypes = {
    L"columns have their types",
    L"select (select count(*) from \"user\" where typeof(name)<>'text' or "
    L"typeof(idgroup)<>'integer' or typeof(password) not in ('real','integer')) + "
    L"(select count(*) from groups where typeof(name)<>'text' or "
    L"typeof(p1) not in ('integer','null') or typeof(p2) not in ('integer','null') or "
    L"typeof(p3) not in ('integer','null'))"};

} // namespace

DatabaseRules::DatabaseRules(const SampleDatabase& database)
    : database_(database), untouched_(UntouchedTables()) {}

std::wstring DatabaseRules::Rows(const SampleDatabase& database, const std::wstring& table) {
    std::wstring text;
    for (const auto& row : database.Query(L"select * from " + table + L" order by 1,2")) {
        for (const auto& cell : row)
            text += cell.value_or(L"(null)") + L"|";
        text += L"\n";
    }
    return text;
}

std::wstring DatabaseRules::UntouchedTables() const {
    std::wstring text;
    for (const wchar_t* table : kUntouched)
        text += Rows(database_, table);
    return text;
}

std::wstring DatabaseRules::Broken() const {
    const bool file = !database_.File().empty();
    std::wstring broken;
    const auto check = [&](const Rule& rule) {
        const std::wstring count = database_.ScalarText(rule.count);
        if (count != L"0")
            broken += rule.name + (L": " + count) + L" against it\n";
    };
    for (const Rule& rule : kRules)
        check(rule);
    check(kUsersOfGroups[file ? 0 : 1]);
    if (file) {
        check(kTypes);
        if (database_.ScalarText(L"pragma integrity_check") != L"ok")
            broken += L"the file is damaged\n";
    }
    if (UntouchedTables() != untouched_)
        broken += L"a table that no form writes has changed\n";
    return broken;
}

} // namespace vndesk::test
