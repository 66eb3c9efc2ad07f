// SPDX-License-Identifier: MIT
// vndesk-convert.exe is killed at random moments: all rows are converted, or none.
#include <gtest/gtest.h>

#include <optional>

#include "support/convert_program.h"
#include "support/random.h"
#include "support/reliability.h"

namespace {

using namespace vndesk::test;

int RowCount() {
    return Rounds(2000, 5000);
}

class ConvertKilled : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (OnServer() && !SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no server: scripts/with-postgres starts one";
        database_.emplace(OnServer() ? SampleDatabase::Server() : SampleDatabase::Embedded());
        Database().Execute(L"create table t(ma integer primary key, ten varchar(60))");
        Database().Execute(L"insert into t with recursive s(n) as (select 1 union all select n+1 "
                           L"from s where n<" +
                           std::to_wstring(RowCount()) + L") select n,'' from s");
    }

    static bool OnServer() { return GetParam() == std::string_view("Server"); }
    const SampleDatabase& Database() const { return *database_; }
    void MakeOld() const {
        Database().Execute(L"update t set ten=" + Literal(Old(L"Nguyễn Văn Hưng")) + L"||ma");
    }
    static unsigned Count(const std::wstring& text, const std::wstring& part) {
        unsigned count = 0;
        for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1))
            ++count;
        return count;
    }
    int Converted() const {
        return std::stoi(Database().ScalarText(L"select count(*) from t where ten='Nguyễn Văn "
                                               L"Hưng'||ma"));
    }

private:
    std::optional<SampleDatabase> database_;
};

INSTANTIATE_TEST_SUITE_P(Embedded, ConvertKilled, testing::Values("Embedded"));
INSTANTIATE_TEST_SUITE_P(Server, ConvertKilled, testing::Values("Server"));

TEST_P(ConvertKilled, LeavesAllOrNothing) {
    Random random;
    const Words words = OnTable(Database(), L"t", L"ten", {L"--from", L"tcvn3"});
    MakeOld();
    const ULONGLONG began = GetTickCount64();
    EXPECT_EQ(0u, Conversion(words).Code());
    const auto whole = static_cast<unsigned>(GetTickCount64() - began);
    EXPECT_EQ(RowCount(), Converted());
    int killed = 0, writing = 0, done = 0;
    for (int round = 0; round < Rounds(3, 20); ++round) {
        MakeOld();
        Conversion conversion(words);
        // Every second time at a tenth of the writing, in the first rounds its first, else at any
        // moment.
        const ULONGLONG limit = GetTickCount64() + random.Below(whole + 1);
        const unsigned tenth = round < 2 ? 1 : 1 + random.Below(10);
        const auto isTime = [&] {
            return round < 2 || round % 2 == 0 ? Count(conversion.Said(), L"rows written") >= tenth
                                               : GetTickCount64() >= limit;
        };
        while (!conversion.HasEnded() && !isTime())
            SwitchToThread();
        killed += conversion.HasEnded() ? 0 : 1;
        const std::wstring said = conversion.Said();
        conversion.Kill();
        const int converted = Converted();
        EXPECT_TRUE(converted == 0 || converted == RowCount()) << converted;
        const bool told = said.find(L"rows converted") != std::wstring::npos;
        if (told) {
            EXPECT_EQ(RowCount(), converted);
        }
        writing += !told && said.find(L"rows written") != std::wstring::npos ? 1 : 0;
        done += converted == RowCount() ? 1 : 0;
    }
    TellFigures(killed, " killed, of them ", writing, " while rows were written; ", done,
                " had committed");
    EXPECT_LT(0, writing);
    // What a killed run has left does not keep the next one from its work.
    MakeOld();
    EXPECT_EQ(0u, Conversion(words).Code());
    EXPECT_EQ(RowCount(), Converted());
}

} // namespace
