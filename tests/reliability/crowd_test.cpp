// SPDX-License-Identifier: MIT
// Twenty host programs add, edit and delete users and groups and give rights in one database at the
// same time. What may be lost is what the rules below say, and nothing else.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>

#include "reliability/database_rules.h"
#include "support/child_process.h"
#include "support/env.h"
#include "support/temp_dir.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr int kHosts = 20;
constexpr DWORD kLimit = 1500000;

// One write of a host, between its press of the button and the end of the form.
struct Write {
    int host;
    ULONGLONG begin, end;
    std::wstring kind, key, values;
};
using Writes = std::vector<Write>;

std::vector<std::wstring> Split(const std::wstring& text, wchar_t mark) {
    std::vector<std::wstring> parts;
    std::wistringstream stream(text);
    for (std::wstring part; std::getline(stream, part, mark);)
        parts.push_back(part);
    return parts;
}

bool Overlap(const Write& a, const Write& b) {
    return a.begin <= b.end && b.begin <= a.end;
}

class Crowd : public testing::Test {
protected:
    void SetUp() override {
        if (!SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no PostgreSQL server: VNDESK_PG is not set";
        database_ = std::make_unique<SampleDatabase>(SampleDatabase::Server());
    }

    void Run(int rounds, int seed) {
        wchar_t path[MAX_PATH] = L"";
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        const std::wstring folder(path, std::wstring_view(path).rfind(L'\\'));
        std::vector<std::unique_ptr<ChildProcess>> hosts;
        for (int i = 0; i < kHosts; ++i)
            hosts.push_back(std::make_unique<ChildProcess>(
                std::vector<std::wstring>{folder + L"\\vncrowd.exe", database_->ConnectionString(),
                                          std::to_wstring(i), std::to_wstring(rounds),
                                          std::to_wstring(seed)},
                OutputOf(i)));
        for (int i = 0; i < kHosts; ++i) {
            EXPECT_EQ(0u, hosts[i]->ExitCode(kLimit))
                << "host " << i << ": " << ToUtf8(ReadUtf8File(OutputOf(i)));
            Read(i);
        }
        EXPECT_FALSE(writes_.empty());
    }

    // What is true of each host's own rows: they are as it has left them.
    void ExpectOwnRows() const {
        std::map<std::wstring, std::wstring> users, groups;
        for (const Write& write : writes_) {
            if (write.kind == L"add user" && !IsShared(write.key))
                users[write.key] = write.values + L"|1401";
            else if (write.kind == L"delete user")
                users.erase(write.key);
            else if (write.kind == L"add group" || write.kind == L"edit group")
                groups[write.key] = write.values;
        }
        EXPECT_EQ(users,
                  Table(L"select name,\"dec\",idgroup,password from \"user\" where code>9 and "
                        L"name not like 'chung%'"));
        EXPECT_EQ(groups, Table(L"select name,rtrim(des) from groups where code>8"));
    }

    // Two hosts may add one name only at the same moment: look-up and insert are two statements.
    void ExpectSharedNames() const {
        std::map<std::wstring, Writes> adds;
        for (const Write& write : writes_)
            if (write.kind == L"add user" && IsShared(write.key))
                adds[write.key].push_back(write);
        for (const auto& [name, same] : adds) {
            EXPECT_EQ(
                std::to_wstring(same.size()),
                database_->ScalarText(L"select count(*) from \"user\" where name='" + name + L"'"));
            for (const Write& a : same)
                for (const Write& b : same)
                    EXPECT_TRUE(Overlap(a, b)) << ToUtf8(name) << " was there already";
        }
        for (const Write& write : writes_)
            if (write.kind == L"refused user") {
                EXPECT_TRUE(adds.contains(write.key)) << "refused without a reason";
            }
        database_->Execute(L"delete from \"user\" where name like 'chung%'");
    }

    // The last writer wins, and wins whole: the row is as one write has left it that no other write
    // came after.
    void ExpectLastWriter(const wchar_t* kind, const wchar_t* key, const std::wstring& row,
                          bool mayBeLost = false) const {
        Writes same;
        std::copy_if(writes_.begin(), writes_.end(), std::back_inserter(same),
                     [&](const Write& w) { return w.kind == kind && w.key == key; });
        if (same.empty())
            return;
        const auto isLast = [&](const Write& write) {
            return mayBeLost || std::none_of(same.begin(), same.end(), [&](const Write& other) {
                       return other.begin > write.end;
                   });
        };
        EXPECT_TRUE(std::any_of(same.begin(), same.end(), [&](const Write& w) {
            return w.values == row && isLast(w);
        })) << ToUtf8(std::wstring(kind) + L" " + key + L" is " + row);
    }
    void ExpectLastWriters() const {
        for (const wchar_t* code : {L"1", L"2", L"4", L"5", L"7"})
            ExpectLastWriter(L"edit user", code, UserRow(code));
        // Writes address a user by name: who has read the row before it was renamed writes nothing.
        ExpectLastWriter(L"edit user", L"9", UserRow(L"9"), true);
        for (const wchar_t* code : {L"2", L"3", L"5"})
            ExpectLastWriter(L"rights", code,
                             database_->ScalarText(L"select p1||'|'||p2||'|'||p3 from groups "
                                                   L"where code=" +
                                                   std::wstring(code)));
    }

    std::string Figures() const {
        std::map<std::wstring, int> kinds;
        for (const Write& write : writes_)
            ++kinds[write.kind];
        std::string text =
            std::to_string(kHosts) + " hosts, " + std::to_string(writes_.size()) + " writes:";
        for (const auto& [kind, count] : kinds)
            text += " " + ToUtf8(kind) + " " + std::to_string(count) + ",";
        text.pop_back();
        return text;
    }

    std::unique_ptr<SampleDatabase> database_;

private:
    std::wstring OutputOf(int host) const {
        return folder_.File(L"host" + std::to_wstring(host) + L".txt");
    }

    void Read(int host) {
        for (std::wstring line : Split(ReadUtf8File(OutputOf(host)), L'\n')) {
            if (!line.empty() && line.back() == L'\r')
                line.pop_back();
            auto parts = Split(line, L'\t');
            if (parts.size() < 4)
                continue;
            parts.resize(5);
            writes_.push_back(
                {host, std::stoull(parts[0]), std::stoull(parts[1]), parts[2], parts[3], parts[4]});
        }
    }

    static bool IsShared(const std::wstring& name) { return name.starts_with(L"chung"); }

    std::wstring UserRow(const std::wstring& code) const {
        return database_->ScalarText(L"select \"dec\"||'|'||idgroup from \"user\" where code=" +
                                     code);
    }

    // The first column, and the others behind it.
    std::map<std::wstring, std::wstring> Table(const wchar_t* statement) const {
        std::map<std::wstring, std::wstring> rows;
        for (const auto& row : database_->Query(statement)) {
            std::wstring rest;
            for (size_t i = 1; i < row.size(); ++i)
                rest += (i > 1 ? L"|" : L"") + row[i].value_or(L"(null)");
            EXPECT_TRUE(rows.emplace(row[0].value_or(L"(null)"), rest).second);
        }
        return rows;
    }

    TempDir folder_;
    Writes writes_;
};

TEST_F(Crowd, LosesNothingButWhatALaterWriterReplaces) {
    const bool full = EnvironmentText(L"VNDESK_RELIABILITY") == L"full";
    const DatabaseRules rules(*database_);
    Run(full ? 40 : 3, 1);
    ExpectOwnRows();
    ExpectSharedNames();
    ExpectLastWriters();
    EXPECT_EQ(L"", rules.Broken());
    std::printf("figures: %s\n", Figures().c_str());
}

} // namespace
} // namespace vndesk::test
