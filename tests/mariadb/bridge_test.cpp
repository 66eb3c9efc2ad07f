// SPDX-License-Identifier: MIT
// ADO for Wine on MariaDB's driver, which counts some letters of wide texts wrong.
#include <gtest/gtest.h>

#include "support/check_hr.h"
#include "support/late_bound.h"
#include "support/sample_database.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

// Letters whose low byte is that of a surrogate are among them: ộ is U+1ED9, Ú is U+00DA.
std::wstring EveryLetter() {
    std::wstring letters;
    for (wchar_t ch = 0x20; ch < 0xD7FF; ch = static_cast<wchar_t>(ch + (ch < 0x2200 ? 1 : 0x101)))
        if (ch < 0x7F || ch > 0xA0)
            letters += ch;
    return letters + L"\xD83D\xDE00";
}

class MariaDbBridge : public testing::Test {
protected:
    void SetUp() override {
        if (!SampleDatabase::MariaDbAvailable())
            GTEST_SKIP() << "no MariaDB server: VNDESK_MARIADB is not set";
        database_ = std::make_unique<SampleDatabase>(SampleDatabase::MariaDb());
        database_->Execute(L"create table t(Short varchar(50) collate utf8mb4_bin,"
                           L"Tall text collate utf8mb4_bin,Flag bit(1),Number double)");
        connection_ = std::make_unique<LateBound>(LateBound::Create(L"ADODB.Connection"));
        connection_->Call(L"Open", {database_->ConnectionString().c_str()});
    }

    _variant_t Value(const std::wstring& statement) const {
        const LateBound rows(connection_->Call(L"Execute", {statement.c_str()}));
        return LateBound(LateBound(rows.Get(L"Fields")).Get(L"Item", {0L})).Get(L"Value");
    }
    std::wstring Text(const std::wstring& statement) const {
        const _bstr_t text(Value(statement));
        return {text.length() ? static_cast<const wchar_t*>(text) : L"", text.length()};
    }
    // Runs a statement with its parameters, each of a type and a size.
    _variant_t Run(const wchar_t* statement,
                   std::initializer_list<std::pair<long, _variant_t>> values) const {
        const LateBound command = LateBound::Create(L"ADODB.Command");
        command.PutObject(L"ActiveConnection", _variant_t(connection_->Dispatch()));
        command.Put(L"CommandText", statement);
        const LateBound parameters(command.Get(L"Parameters"));
        for (const auto& [type, value] : values)
            parameters.Call(L"Append",
                            {command.Call(L"CreateParameter", {L"", type, 1L, 20000L, value})});
        return command.Call(L"Execute");
    }

    std::unique_ptr<SampleDatabase> database_;
    std::unique_ptr<LateBound> connection_;
};

constexpr long kText = 202, kDate = 7, kDouble = 5;

TEST_F(MariaDbBridge, EveryLetterIsReadInShortAndLongTexts) {
    const std::wstring letters = EveryLetter();
    for (size_t at = 0; at < letters.size(); at += 40) {
        const std::wstring some = letters.substr(at, 40);
        std::wstring literal;
        for (const wchar_t ch : some)
            literal += std::wstring(ch == L'\'' || ch == L'\\' ? 2 : 1, ch);
        EXPECT_EQ(some, Text(L"select '" + literal + L"'"));
    }
    const std::wstring tall(10000, L'\x1ED9');
    database_->Execute(L"insert into t(Short,Tall) values('Hà Nội','" + tall + L"')");
    EXPECT_EQ(L"Hà Nội", Text(L"select Short from t"));
    EXPECT_EQ(tall, Text(L"select Tall from t"));
}

TEST_F(MariaDbBridge, EveryLetterIsWrittenByParameters) {
    const std::wstring letters = EveryLetter();
    Run(L"insert into t(Short,Tall) values(?,?)", {{kText, L"Mới Út Ộ"}, {kText, letters.c_str()}});
    EXPECT_EQ(L"Mới Út Ộ", Text(L"select Short from t"));
    EXPECT_EQ(letters, Text(L"select Tall from t"));
    EXPECT_EQ(L"4DE1BB9B6920C39A7420E1BB98", Text(L"select hex(Short) from t"));
    Run(L"update t set Number=1 where Short=? and Tall=?",
        {{kText, L"Mới Út Ộ"}, {kText, letters.c_str()}});
    EXPECT_EQ(1, static_cast<long>(Value(L"select Number from t")));
}

TEST_F(MariaDbBridge, BitsDatesAndNumbersCrossOver) {
    database_->Execute(L"insert into t(Flag) values(1),(0)");
    EXPECT_EQ(VT_BOOL, Value(L"select Flag from t").vt);
    EXPECT_TRUE(static_cast<bool>(Value(L"select max(Flag) from t")));
    EXPECT_EQ(VARIANT_FALSE, Value(L"select Flag from t order by Flag").boolVal);
    const double number = 12345678901234567.0 / 7;
    Run(L"insert into t(Number) values(?)", {{kDouble, number}});
    EXPECT_EQ(number, static_cast<double>(Value(L"select Number from t where Number is not null")));
    DATE moment = 0;
    SYSTEMTIME time = {2020, 1, 0, 2, 3, 4, 5, 0};
    SystemTimeToVariantTime(&time, &moment);
    Run(L"update t set Short=? where timestamp'2020-01-02 03:04:05'=? and Flag=1",
        {{kText, L"gặp"}, {kDate, _variant_t(moment, VT_DATE)}});
    EXPECT_EQ(L"gặp", Text(L"select Short from t where Flag=1"));
}

} // namespace
} // namespace vndesk::test
