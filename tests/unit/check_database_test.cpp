// SPDX-License-Identifier: MIT
// What vndesk-check says of a host's database, by what was read of it.
#include "check/database_rules.h"

#include <gtest/gtest.h>

using namespace vndesk;
using namespace vndesk::check;

namespace {

// A database with everything, also the tables of 1.1.
DatabaseSeen Whole() {
    DatabaseSeen seen;
    seen.engine = L"PostgreSQL 15";
    seen.script = L"postgresql";
    for (const TableWanted& wanted : TablesWanted())
        seen.tables[wanted.name].columns = {wanted.columns.begin(), wanted.columns.end()};
    for (const wchar_t* rights : {L"P1", L"P2"})
        seen.tables[L"Groups"].columns.push_back(rights);
    seen.users = {3};
    seen.groups = {1, 2, 8};
    seen.menus = {1, 2};
    seen.commands = {{1, 31}, {2, 1}};
    seen.fieldTypes = {3, 8, 10};
    seen.operatorTypes = {1, 3, 8, 10};
    return seen;
}

// "column-missing User Dec", for all that is not well.
std::vector<std::wstring> Wrong(const DatabaseSeen& seen) {
    std::vector<std::wstring> lines;
    for (const Finding& finding : JudgeDatabase(seen)) {
        if (KindOf(finding.id).state == State::Ok)
            continue;
        std::wstring line = KindOf(finding.id).name;
        for (const std::wstring& value : finding.values)
            line += L" " + value;
        lines.push_back(line);
    }
    return lines;
}

using Lines = std::vector<std::wstring>;

} // namespace

TEST(CheckDatabase, SaysNothingBadOfOneThatHasEverything) {
    EXPECT_EQ(Lines{}, Wrong(Whole()));
    const Findings findings = JudgeDatabase(Whole());
    ASSERT_EQ(3u, findings.size());
    EXPECT_EQ(Id::DatabaseOpened, findings[0].id);
    EXPECT_EQ(L"PostgreSQL 15", findings[0].values.at(0));
    EXPECT_EQ(L"User, Groups, Menu, SubMenu, LstFld, Operator, Options", findings[1].values.at(0));
    EXPECT_EQ(L"VnUser, VnAudit", findings[2].values.at(0));
}

TEST(CheckDatabase, NamesOfColumnsAreComparedWithoutRegardToCase) {
    DatabaseSeen seen = Whole();
    for (std::wstring& column : seen.tables[L"User"].columns)
        for (wchar_t& ch : column)
            ch = static_cast<wchar_t>(ch | 0x20);
    EXPECT_EQ(Lines{}, Wrong(seen));
}

TEST(CheckDatabase, MissingTablesAreAsBadAsTheirUse) {
    DatabaseSeen seen = Whole();
    seen.tables[L"Menu"].error = L"no such\r\ntable";
    seen.menus.clear();
    seen.tables[L"LstFld"].error = L"x";
    seen.tables[L"Options"].error = L"y";
    seen.tables[L"VnUser"].error = L"z";
    seen.tables[L"VnAudit"].error = L"z";
    EXPECT_EQ(
        (Lines{L"table-missing Menu no such table", L"search-table-missing LstFld x",
               L"options-table-missing Options y", L"upgrade-missing VnUser accounts.postgresql",
               L"upgrade-missing VnAudit audit.postgresql"}),
        Wrong(seen));
    EXPECT_EQ(2, ExitCode(JudgeDatabase(seen)));
    seen.tables[L"Menu"].error.clear();
    seen.menus = {1};
    EXPECT_EQ(1, ExitCode(JudgeDatabase(seen)));
    seen.tables[L"LstFld"].error.clear();
    EXPECT_EQ(0, ExitCode(JudgeDatabase(seen)));
}

TEST(CheckDatabase, ColumnsMustBeThereAndInOrderWhereThatCounts) {
    DatabaseSeen seen = Whole();
    seen.tables[L"User"].columns = {L"Name", L"Code", L"IdGroup", L"Password"};
    seen.tables[L"Groups"].columns = {L"Code", L"Des", L"Name", L"P1", L"P2"};
    seen.tables[L"Menu"].columns = {L"Desc", L"ID"};
    EXPECT_EQ((Lines{L"column-order User Code 1", L"column-missing User Dec",
                     L"column-order Groups Name 2", L"column-order Groups Des 3"}),
              Wrong(seen));
}

TEST(CheckDatabase, EachMenuBarNeedsAColumnAndHasAtMost31Commands) {
    DatabaseSeen seen = Whole();
    seen.menus = {1, 2, 7};
    seen.commands[2] = 32;
    EXPECT_EQ((Lines{L"rights-columns-missing 2 3", L"menu-bar-too-long 2 32"}), Wrong(seen));
    seen = Whole();
    seen.menus.clear();
    EXPECT_EQ(Lines{L"menu-empty"}, Wrong(seen));
}

TEST(CheckDatabase, RowsThatTheLibraryReliesOnMustBeThere) {
    DatabaseSeen seen = Whole();
    seen.users.clear();
    seen.groups = {2, 8};
    seen.operatorTypes.erase(10);
    EXPECT_EQ((Lines{L"group-missing 1", L"administrator-missing", L"operators-missing 10"}),
              Wrong(seen));
}

TEST(CheckDatabase, TellsWhatTheEngineDoesNotRead) {
    DatabaseSeen seen = Whole();
    seen.refusesBrackets = true;
    seen.readsHashDates = false;
    EXPECT_EQ((Lines{L"database-needs-dialect PostgreSQL 15", L"date-fields"}), Wrong(seen));
    seen.fieldTypes.erase(8);
    EXPECT_EQ(Lines{L"database-needs-dialect PostgreSQL 15"}, Wrong(seen));
}

TEST(CheckDatabase, EachReasonOfAFailedConnectionHasAName) {
    std::set<std::wstring> names;
    for (int reason = 0; reason < static_cast<int>(FailureReason::Count); ++reason) {
        const Finding finding =
            JudgeFailure({static_cast<FailureReason>(reason), 64, L"one\r\n\ttwo"});
        EXPECT_EQ(L"one two", finding.values.at(0));
        EXPECT_EQ(L"64", finding.values.at(1));
        EXPECT_EQ(State::Error, KindOf(finding.id).state);
        names.insert(KindOf(finding.id).name);
    }
    EXPECT_EQ(static_cast<std::size_t>(FailureReason::Count), names.size());
    EXPECT_EQ(1u, names.count(L"database-not-opened"));
}
