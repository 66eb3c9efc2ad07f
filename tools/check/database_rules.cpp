// SPDX-License-Identifier: MIT
#include "check/database_rules.h"

#include <algorithm>
#include <iterator>

#include "text/ascii_text.h"

namespace vndesk::check {

namespace {

// Columns of Groups before those of rights.
constexpr std::size_t kBeforeRights = 3;
constexpr long kMostCommands = 31;
constexpr long kDateField = 8;

// Findings are lines of their own.
std::wstring InOneLine(std::wstring_view text) {
    std::wstring line;
    for (const wchar_t ch : text)
        if (ch >= L' ')
            line += ch;
        else if (!line.empty() && line.back() != L' ')
            line += L' ';
    return line;
}

std::size_t PlaceOf(const TableSeen& table, std::wstring_view column) {
    return static_cast<std::size_t>(
        std::find_if(table.columns.begin(), table.columns.end(),
                     [&](const std::wstring& one) { return EqualsIgnoringCase(one, column); }) -
        table.columns.begin());
}

const TableSeen* Readable(const DatabaseSeen& seen, const wchar_t* name) {
    const auto table = seen.tables.find(name);
    return table == seen.tables.end() || !table->second.error.empty() ? nullptr : &table->second;
}

void JudgeColumns(const TableWanted& wanted, const TableSeen& table, Findings& findings) {
    for (std::size_t i = 0; i < wanted.columns.size(); ++i) {
        const std::size_t place = PlaceOf(table, wanted.columns[i]);
        if (place == table.columns.size())
            findings.push_back({Id::ColumnMissing, {wanted.name, wanted.columns[i]}});
        else if (i < wanted.inOrder && place != i)
            findings.push_back(
                {Id::ColumnOrder, {wanted.name, wanted.columns[i], std::to_wstring(i + 1)}});
    }
}

void JudgeTables(const DatabaseSeen& seen, Findings& findings) {
    std::wstring present, upgraded;
    Findings wrong;
    for (const TableWanted& wanted : TablesWanted()) {
        const bool upgrade = wanted.missing == Id::UpgradeMissing;
        if (const TableSeen* table = Readable(seen, wanted.name)) {
            std::wstring& list = upgrade ? upgraded : present;
            list += (list.empty() ? L"" : L", ") + std::wstring(wanted.name);
            JudgeColumns(wanted, *table, wrong);
        } else if (upgrade) {
            const bool audit = std::wstring_view(wanted.name) == L"VnAudit";
            wrong.push_back(
                {wanted.missing,
                 {wanted.name, std::wstring(audit ? L"audit" : L"accounts") + L"." + seen.script}});
        } else {
            const auto table = seen.tables.find(wanted.name);
            wrong.push_back(
                {wanted.missing,
                 {wanted.name, table == seen.tables.end() ? L"" : InOneLine(table->second.error)}});
        }
    }
    if (!present.empty())
        findings.push_back({Id::TablesPresent, {present}});
    if (!upgraded.empty())
        findings.push_back({Id::UpgradesPresent, {upgraded}});
    findings.insert(findings.end(), wrong.begin(), wrong.end());
}

void JudgeRights(const DatabaseSeen& seen, Findings& findings) {
    const TableSeen* groups = Readable(seen, L"Groups");
    if (Readable(seen, L"Menu") && seen.menus.empty())
        findings.push_back({Id::MenuEmpty, {}});
    if (groups) {
        const std::size_t rights =
            groups->columns.size() - std::min(groups->columns.size(), kBeforeRights);
        if (rights < seen.menus.size())
            findings.push_back({Id::RightsColumnsMissing,
                                {std::to_wstring(rights), std::to_wstring(seen.menus.size())}});
        for (const long group : kKeptGroups)
            if (seen.groups.count(group) == 0)
                findings.push_back({Id::GroupMissing, {std::to_wstring(group)}});
    }
    for (const auto& [bar, count] : seen.commands)
        if (count > kMostCommands)
            findings.push_back(
                {Id::MenuBarTooLong, {std::to_wstring(bar), std::to_wstring(count)}});
}

void JudgeSearch(const DatabaseSeen& seen, Findings& findings) {
    if (Readable(seen, L"Operator"))
        for (const long type : seen.fieldTypes)
            if (seen.operatorTypes.count(type) == 0)
                findings.push_back({Id::OperatorsMissing, {std::to_wstring(type)}});
    if (!seen.readsHashDates && seen.fieldTypes.count(kDateField) != 0)
        findings.push_back({Id::DateFields, {}});
}

struct FailureRow {
    FailureReason reason;
    Id id;
};

constexpr FailureRow kFailures[] = {
    {FailureReason::CertificateNotTrusted, Id::DatabaseCertificate},
    {FailureReason::DriverMissing, Id::DatabaseDriverMissing},
    {FailureReason::JetIn64Bits, Id::DatabaseJetIn64Bit},
    {FailureReason::NameOrPassword, Id::DatabaseLoginRefused},
    {FailureReason::DatabaseNotFound, Id::DatabaseNotOnServer},
    {FailureReason::FileNotFound, Id::DatabaseFileNotFound},
    {FailureReason::ServerNotReady, Id::DatabaseServerNotReady},
    {FailureReason::ServerNotFound, Id::DatabaseServerNotFound},
};

} // namespace

const std::vector<TableWanted>& TablesWanted() {
    static const std::vector<TableWanted> tables = {
        {L"User", Id::TableMissing, {L"Code", L"Name", L"Dec", L"IdGroup", L"Password"}, 1},
        {L"Groups", Id::TableMissing, {L"Code", L"Name", L"Des"}, kBeforeRights},
        {L"Menu", Id::TableMissing, {L"ID", L"Desc"}},
        {L"SubMenu", Id::TableMissing, {L"ID", L"IdMenuBar", L"Desc"}},
        {L"LstFld",
         Id::SearchTableMissing,
         {L"Code", L"InTable", L"Name", L"Desc", L"Type", L"Relation"}},
        {L"Operator", Id::SearchTableMissing, {L"Code", L"Name", L"Des", L"Type"}},
        {L"Options",
         Id::OptionsTableMissing,
         {L"Section", L"KeyName", L"KeyValue", L"Description"}},
        {L"VnUser",
         Id::UpgradeMissing,
         {L"UserCode", L"PasswordHash", L"Failed", L"FirstAt", L"LockedUntil", L"LastAt", L"LastPC",
          L"MustChange"}},
        {L"VnAudit",
         Id::UpgradeMissing,
         {L"Code", L"At", L"UserCode", L"UserName", L"PC", L"WinUser", L"Action", L"Subject",
          L"Before", L"After"}},
    };
    return tables;
}

Findings JudgeDatabase(const DatabaseSeen& seen) {
    Findings findings = {{Id::DatabaseOpened, {seen.engine}}};
    if (seen.refusesBrackets)
        findings.push_back({Id::DatabaseNeedsDialect, {seen.engine}});
    JudgeTables(seen, findings);
    JudgeRights(seen, findings);
    if (Readable(seen, L"User") && seen.users.count(kMainAdministrator) == 0)
        findings.push_back({Id::AdministratorMissing, {}});
    JudgeSearch(seen, findings);
    return findings;
}

Finding JudgeFailure(const ConnectionFailure& failure) {
    const auto* row =
        std::find_if(std::begin(kFailures), std::end(kFailures),
                     [&](const FailureRow& one) { return one.reason == failure.reason; });
    return {row == std::end(kFailures) ? Id::DatabaseNotOpened : row->id,
            {InOneLine(failure.providerText), std::to_wstring(failure.bits)}};
}

} // namespace vndesk::check
