// SPDX-License-Identifier: MIT
// Every statement that the library can write for SQL Server, put through a parser of its language:
// no server of it runs where the library is built.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "accounts/text/audit_statements.h"
#include "controls/picker/text/select_statements.h"
#include "data/text/dialect.h"
#include "data/text/option_statements.h"
#include "data/text/statements.h"
#include "find/text/catalogue.h"
#include "find/text/ordered.h"
#include "find/text/parameterized_condition.h"
#include "logon/text/logon_statement.h"
#include "security/text/group_statements.h"
#include "security/text/permissions.h"
#include "security/text/user_statements.h"

using namespace vndesk;

namespace {

const Dialect& kServer = DialectOf(Engine::SqlServer);
using Statements = std::vector<Statement>;

// What users type: quotes, comments, letters of Vietnamese and of other planes, wildcards, nothing.
const std::vector<std::wstring>& Texts() {
    static const std::vector<std::wstring> texts = {L"Hà Nội",
                                                    L"O'Brien",
                                                    L"''",
                                                    L"'",
                                                    L"\"hai\" [ba] `bốn` {ts}",
                                                    L"x' OR 1=1) --",
                                                    L"/* */;",
                                                    L"50%_[a]",
                                                    L"a\\",
                                                    L"?",
                                                    L"",
                                                    L" ",
                                                    L"\xD83D\xDE00",
                                                    L"dòng\thai"};
    return texts;
}

std::string Utf8(std::wstring_view text) {
    constexpr unsigned char kLead[] = {0, 0xC0, 0xE0, 0xF0};
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto ch = static_cast<std::uint32_t>(text[i]);
        // The halves of a pair, where a wide character is more than one of them.
        if (ch >= 0xD800 && ch < 0xDC00 && i + 1 < text.size())
            ch = 0x10000 + ((ch - 0xD800) << 10) + (static_cast<std::uint32_t>(text[++i]) - 0xDC00);
        if (ch < 0x80) {
            bytes += static_cast<char>(ch);
            continue;
        }
        const int more = ch < 0x800 ? 1 : ch < 0x10000 ? 2 : 3;
        bytes += static_cast<char>(kLead[more] | (ch >> (6 * more)));
        for (int k = more; k-- > 0;)
            bytes += static_cast<char>(0x80 | (ch >> (6 * k) & 0x3F));
    }
    return bytes;
}

// What the parser prints, and whether it has accepted every line.
struct Verdict {
    std::string printed;
    bool accepted;
};

Verdict Parse(const std::string& lines, const std::string& name) {
    const char* out = std::getenv("VNDESK_OUT");
    const char* sources = std::getenv("VNDESK_SOURCE_DIR");
    const std::filesystem::path file = std::filesystem::path(out ? out : "/tmp") / name;
    std::ofstream(file, std::ios::binary) << lines;
    const std::string command = "'" + std::string(sources ? sources : ".") +
                                "/tests/tsql/tsql.py' '" + file.string() + "' 2>&1";
    Verdict verdict = {};
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return verdict;
    char buffer[4096];
    while (std::fgets(buffer, sizeof buffer, pipe))
        verdict.printed += buffer;
    verdict.accepted = pclose(pipe) == 0;
    return verdict;
}

void ExpectParsed(const Statements& statements, const std::string& name) {
    std::string lines;
    for (const Statement& statement : statements)
        lines += Utf8(statement.text) + "\n";
    const Verdict verdict = Parse(lines, name);
    EXPECT_TRUE(verdict.accepted) << verdict.printed;
    EXPECT_EQ(std::to_string(statements.size()) + " statements, 0 refused\n", verdict.printed);
}

void Add(Statements& statements, Statements more) {
    statements.insert(statements.end(), more.begin(), more.end());
}

Statements AboutUsersAndGroups(const std::wstring& text, ValueStyle style) {
    const UserFields user = {text, text, 7};
    const std::wstring groups = L"[Groups]";
    return {
        LogonStatement(text, -1.5e20, style),
        UserNamedStatement(text, style),
        LoadUserStatement(text, style),
        InsertUserStatement(user, 1196379, style),
        OtherUserNamedStatement(text, text, style),
        UpdateUserStatement(user, 7, text, style),
        UpdateUserStatement(user, std::nullopt, text, style),
        DeleteUserStatement(text, style),
        InsertGroupStatement(groups, text, text, style),
        UpdateGroupStatement(groups, 7, text, text, style),
    };
}

Statements WithoutTexts(ValueStyle style) {
    const std::wstring groups = L"[Groups]";
    return {
        OwnStatement(kUserListStatement, style),
        StatementWriter(style) << WholeTable{groups},
        StatementWriter(style) << WholeTable{L"Menu"},
        OwnStatement(LastValueStatement(L"User", L"Code"), style),
        OwnStatement(LastValueStatement(L"Groups", L"Name"), style),
        UsersAfterStatement(-7, style),
        UserWithCodeStatement(L"7", style),
        GroupStatement(groups, 7, style),
        GroupMembersStatement(7, style),
        DeletedGroupsStatement(groups, L"2,3", style),
        DeleteGroupsStatement(groups, L"2,3", style),
        GroupRightsStatement(7, style),
        MenuCommandsStatement(7, style),
        WriteRightsStatement({L"P1", L"Quyền 2", L"Desc"}, {7, -2147483647, 0}, 7, style),
        OperatorListStatement(10, style),
        OwnStatement(L"Select * From [VnUser],[VnAudit] Where 1=0", style),
        StatementWriter(style) << L"Select " << AsGiven{UtcNow(Engine::SqlServer)}
                               << L" As [ServerNow]",
    };
}

Statements AboutSearches(const std::wstring& text, ValueStyle style) {
    return {
        Ordered(FieldListStatement(text, style), kCatalogueOrder, style),
        Ordered(FieldInfoStatement(text, style), kCatalogueOrder, style),
        LookUpStatement(L"TinhThanh", text, style),
        LookUpStatement(L"Khach Hang", text, style),
        LookUpStatement(L"dbo.Order", text, style),
        LookUpStatement(L"Select Ma,Ten From Hang Where Ten", text, style),
        NamesBeginningStatement(L"Select Ma,Ten From Hang Where Ten", text, style),
        LookUpStatement(L"Order", text, style, FindingNames(text, Engine::SqlServer, true)),
        NamesBeginningStatement(L"Select Ma,Ten From Hang Where Ten", text, style,
                                FindingNames(text, Engine::SqlServer, false)),
        CodeStatement(L"Select Ma,Ten From Hang Where Ma", text, style),
        ReadOptionStatement({text, text}, style),
        FindOptionStatement({text, text}, style),
        InsertOptionStatement({text, text}, text, L"", style),
        InsertOptionStatement({text, text}, text, L"mô tả", style),
        UpdateOptionStatement({text, text}, text, L"", style),
        UpdateOptionStatement({text, text}, text, text, style),
    };
}

Statements AboutAccounts() {
    const Clock now = {Engine::SqlServer, {}};
    Statements statements = {
        UsersNamedStatement(L"v", &kServer),
        UserCodedStatement(7, &kServer),
        AccountStatement(7, &kServer),
        AddAccountStatement(7, &kServer),
        DeleteAccountStatement(7, &kServer),
        PullLockStatement(7, {}, &kServer),
        PullWindowStatement(7, {}, &kServer),
        LoggedOnStatement(7, now, L"PC", &kServer),
        UnlockStatement(7, &kServer),
        SetHashStatement(7, L"v", true, &kServer),
        SetMustChangeStatement(7, true, &kServer),
        GiveUpNumberStatement(7, 1401, &kServer),
        SetNumberStatement(7, 1401, &kServer),
        LockedUsersStatement(&kServer),
        AuditStatement({}, {}, now, &kServer),
    };
    for (const bool delayed : {false, true}) {
        const LockRules rules = {5, 15, 15, delayed};
        Add(statements, {StartAnewStatement(7, {}, rules, &kServer),
                         CountTryStatement(7, 3, {}, rules, Engine::SqlServer, &kServer)});
    }
    return statements;
}

ConditionLine Line(const std::wstring& name, long type, const std::wstring& op,
                   const std::wstring& value) {
    ConditionLine line;
    line.fieldIndex = line.operatorIndex = 0;
    line.fieldName = name;
    line.fieldType = type;
    line.operatorName = op;
    line.value = value;
    return line;
}

// The conditions of a line as a host runs them.
Statements Conditions(const ConditionLines& lines) {
    const std::wstring select = L"Select * From [KhachHang] Where ";
    return {select + GetRes(lines, kServer),
            select + GetParameterized(lines, Engine::SqlServer, &kServer).text};
}

Statements Conditions(const ConditionLine& line) {
    ConditionLines lines;
    lines[0] = line;
    return Conditions(lines);
}

TEST(TSqlTest, StatementsWithTextsAreParsed) {
    Statements statements;
    for (const std::wstring& text : Texts())
        for (const bool bound : {false, true}) {
            const ValueStyle style = {kServer, bound};
            Add(statements, AboutUsersAndGroups(text, style));
            Add(statements, AboutSearches(text, style));
        }
    ExpectParsed(statements, "tsql-texts.txt");
}

TEST(TSqlTest, OtherStatementsAreParsed) {
    Statements statements = AboutAccounts();
    for (const bool bound : {false, true})
        Add(statements, WithoutTexts({kServer, bound}));
    ExpectParsed(statements, "tsql-others.txt");
}

TEST(TSqlTest, ConditionsOfEveryTypeAndOperatorAreParsed) {
    const std::vector<std::wstring> values[] = {
        {L"1", L"0", L"-1", L"True", L"false", L"có"},               // flags
        {L"1", L"-1.5", L"1E3", L".5", L"5.", L"9007199254740993"},  // numbers
        {L"5/3/2021", L"1-2-99", L"2004/1/15", L"5/3/2021 7:08 PM"}, // dates
        Texts(),
    };
    struct Type {
        long code;
        int values;
    };
    Statements statements;
    for (const Type& type : {Type{kFieldFlag, 0}, Type{kFieldNumber, 1}, Type{kFieldAmount, 1},
                             Type{kFieldDate, 2}, Type{kFieldText, 3}, Type{kFieldMemo, 3}})
        for (const wchar_t* op : {L"=", L"<>", L">", L">=", L"<", L"<=", L"in", L"Like"})
            for (const std::wstring& value : values[type.values])
                for (const wchar_t* name :
                     {L"MaKH", L"Desc", L"Ngày lập", L"[Khach].[Order]", L"dbo.Khach.User"})
                    Add(statements, Conditions(Line(name, type.code, op, value)));
    for (const wchar_t* list : {L"1,2", L"1,-2.5,3E2"})
        Add(statements, Conditions(Line(L"So", kFieldNumber, L"IN", list)));
    Add(statements, Conditions(Line(L"Ten", kFieldText, L"IN", L"a,b'c,,d")));
    Add(statements, Conditions(Line(L"Ngay", kFieldDate, L"IN", L"5/3/2021,6/4/2021 10:00")));
    ExpectParsed(statements, "tsql-conditions.txt");
}

TEST(TSqlTest, JoinedLinesAreParsed) {
    ConditionLines lines;
    lines[0] = Line(L"Ten", kFieldText, L"Like", L"a(b");
    lines[1] = Line(L"So", kFieldNumber, L"IN", L"1,2");
    lines[2] = Line(L"Ngay", kFieldDate, L">=", L"5/3/2021");
    lines[3] = Line(L"Co", kFieldFlag, L"=", L"1");
    lines[1].joinName = L"or";
    lines[2].joinName = L"and";
    ExpectParsed(Conditions(lines), "tsql-joined.txt");
}

// The parser must refuse what it is there for, or the tests above say nothing.
TEST(TSqlTest, WhatSqlServerDoesNotReadIsRefused) {
    const std::vector<std::string> planted = {
        "[Groups]",
        "Groups",
        "foo bar",
        "Vacuum",
        "Exec sp_help",
        "Select 1; Drop Table [x]",
        "Alter Table [t] Add [x] int",
        "Select * From User Where x = 1",
        "Select * From [t] Where Order=2",
        "Select * From [t] Where Desc=2",
        "Select \"a\" From [t]",
        "Select * From `t`",
        "Select * From [t] Limit 5",
        "Select * From [t] Where d=#03/05/2021#",
        "Select * From [t] Where d=DATE '2021-03-05'",
        "Select * From [t] Where c=TRUE",
        "Select * From [t] Where a=N'a'b'",
        "Select * From [t] Where a=N'a",
        "Select * From [t] Where a=E'x'",
        "Select * From [t] Where a='H\xC3\xA0'",
        "Select ( [a] From [t]",
        "Select * From [t] Where",
        "Insert Into [t]([a],[b]) Values(1,2",
        "Update [t] Set Where [a]=1",
        "Select UTC_TIMESTAMP()",
        "Select  [Code]  from [[Groups]] Order by [Code]",
    };
    std::string lines;
    for (const std::string& line : planted)
        lines += line + "\n";
    const Verdict verdict = Parse(lines, "tsql-planted.txt");
    EXPECT_FALSE(verdict.accepted);
    const std::string count = std::to_string(planted.size());
    EXPECT_NE(std::string::npos,
              verdict.printed.find(count + " statements, " + count + " refused\n"))
        << verdict.printed;
}

TEST(TSqlTest, NothingToParseIsAFailure) {
    EXPECT_FALSE(Parse("", "tsql-nothing.txt").accepted);
}

} // namespace
