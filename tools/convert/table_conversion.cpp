// SPDX-License-Identifier: MIT
#include "convert/table_conversion.h"

#include <optional>

#include "comkit/base/com_error.h"
#include "console/console.h"
#include "convert/scan.h"
#include "convert/whole_file.h"
#include "convert/write.h"
#include "data/connect/failure.h"
#include "data/connect/transaction.h"

namespace vndesk::convert {

namespace {

void TellFound(const Table& table, const Changes& changes, const Options& options,
               const Tell& tell) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const Found& found = changes.columns[i];
        tell(Message::ColumnFound,
             {table.columns[i].name, std::to_wstring(found.convert), std::to_wstring(found.already),
              std::to_wstring(found.plain), std::to_wstring(found.doubtful)});
    }
    if (changes.Doubtful() == 0)
        return;
    tell(Message::Doubtful, {std::to_wstring(changes.Doubtful())});
    if (options.report.empty())
        tell(Message::NotListed, {});
    else
        tell(Message::Listed, {options.report});
}

// Before anything is written into the table.
void WriteReport(const Changes& changes, const Options& options) {
    if (options.report.empty())
        return;
    const ErrorState error = Trap([&] {
        WriteWhole(options.report, "\xEF\xBB\xBF" + console::Utf8Of(changes.report.Text()));
    });
    if (error)
        throw Refusal{Message::ReportFailed, {options.report, error.description}};
}

Refusal Unread(const Database& database, const Table& table, const std::wstring& description) {
    return {Message::ReadFailed, {table.name, ShownText(database, description)}};
}

void Commit(Transaction& transaction, const Database& database) {
    const ErrorState error = Trap([&] { transaction.Commit(); });
    if (error.code == kAnswerLost)
        throw Refusal{Message::AnswerLost, {}};
    if (error)
        throw Refusal{Message::CommitFailed, {ShownText(database, error.description)}};
}

} // namespace

std::size_t ConvertTable(const Database& database, const Options& options, const Tell& tell) {
    const Table table = FindTable(database, options);
    std::optional<Transaction> transaction;
    Changes changes;
    const ErrorState error = Trap([&] {
        if (!options.dryRun)
            transaction.emplace(database);
        changes = ScanTable(database, table, options, tell);
    });
    if (error)
        throw Unread(database, table, error.description);
    WriteReport(changes, options);
    TellFound(table, changes, options, tell);
    if (changes.rows.empty()) {
        tell(Message::NothingToDo, {});
    } else if (options.dryRun) {
        tell(Message::WouldConvert, {std::to_wstring(changes.rows.size())});
    } else {
        WriteChanges(database, table, changes, tell);
        try {
            VerifyChanges(database, table, changes);
        } catch (const ComError& failure) {
            throw Unread(database, table, failure.Description());
        }
        Commit(*transaction, database);
        tell(Message::Converted, {std::to_wstring(changes.rows.size())});
    }
    return changes.Doubtful();
}

} // namespace vndesk::convert
