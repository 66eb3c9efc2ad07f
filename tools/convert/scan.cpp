// SPDX-License-Identifier: MIT
#include "convert/scan.h"

#include "comkit/base/bstr.h"
#include "convert/judge.h"
#include "data/connect/recordset.h"

namespace vndesk::convert {

namespace {

constexpr std::size_t kRowsBetweenTelling = 100'000;

class Scanner {
public:
    Scanner(const Database& database, const Table& table, const Options& options)
        : table_(table), options_(options) {
        changes_.columns.resize(table.columns.size());
        rows_.Create(database);
        rows_.Open(table.ReadingStatement());
    }

    Changes Scan(const Tell& tell) {
        std::size_t count = 0;
        for (; !rows_.Eof(); rows_.MoveNext()) {
            if (count != 0 && count % kRowsBetweenTelling == 0)
                tell(Message::RowsRead, {std::to_wstring(count)});
            ++count;
            ScanRow();
        }
        rows_.Close();
        tell(Message::RowsRead, {std::to_wstring(count)});
        return std::move(changes_);
    }

private:
    void ScanRow() {
        Change change;
        for (std::size_t i = 0; i < table_.columns.size(); ++i) {
            const _variant_t value = rows_.Value(static_cast<long>(table_.keys.size() + i));
            if (V_VT(&value) != VT_BSTR) { // Null, or a number in an engine that takes everything
                ++changes_.columns[i].plain;
                continue;
            }
            const std::wstring text = FromBstr(V_BSTR(&value));
            Judged judged = Judge(text, options_.from);
            if (judged.verdict == Verdict::Convert || judged.verdict == Verdict::Doubtful) {
                ReadKey(change);
                if (judged.verdict == Verdict::Convert && HasNull(change.key))
                    judged = {Verdict::Doubtful, Doubt::NoKey, std::move(judged.converted)};
                if (judged.verdict == Verdict::Doubtful || options_.dryRun)
                    changes_.report.Add(ShownKey(table_.keys, change.key), table_.columns[i].name,
                                        text, judged);
            }
            Count(changes_.columns[i], judged.verdict);
            if (judged.verdict == Verdict::Convert)
                change.texts.push_back({i, text, std::move(judged.converted)});
        }
        if (!change.texts.empty())
            changes_.rows.push_back(std::move(change));
    }

    void ReadKey(Change& change) {
        while (change.key.size() < table_.keys.size())
            change.key.push_back(rows_.Value(static_cast<long>(change.key.size())));
    }

    static void Count(Found& found, Verdict verdict) {
        switch (verdict) {
        case Verdict::Plain:
            ++found.plain;
            return;
        case Verdict::Already:
            ++found.already;
            return;
        case Verdict::Convert:
            ++found.convert;
            return;
        case Verdict::Doubtful:
            ++found.doubtful;
        }
    }

    const Table& table_;
    const Options& options_;
    Recordset rows_;
    Changes changes_;
};

} // namespace

std::size_t Changes::Doubtful() const {
    std::size_t count = 0;
    for (const Found& found : columns)
        count += found.doubtful;
    return count;
}

Changes ScanTable(const Database& database, const Table& table, const Options& options,
                  const Tell& tell) {
    return Scanner(database, table, options).Scan(tell);
}

} // namespace vndesk::convert
