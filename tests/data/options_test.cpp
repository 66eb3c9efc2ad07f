// SPDX-License-Identifier: MIT
// Named settings in the Options table, written and read on real databases.
#include "data/data_fixture.h"

#include "data/stores/options.h"
#include "support/check_hr.h"
#include "support/env.h"
#include "support/temp_dir.h"

namespace vndesk::test {
namespace {

class OptionsTest : public DataTest {
protected:
    std::wstring Get(const wchar_t* section, const wchar_t* key) {
        return GetOption(Db(), {section, key}, L"(default)");
    }
    long Set(const wchar_t* key, const wchar_t* value, const wchar_t* description = L"",
             bool insertOnly = false) {
        return SetOption(Db(), {L"Thử", key}, value, description, insertOnly);
    }
    // Values and descriptions of the settings that Set wrote, past the library.
    std::vector<OdbcSession::Row> Stored(const std::wstring& key) {
        return Sample().Query(L"SELECT KeyValue, Description FROM Options WHERE Section = 'Thử' "
                              L"AND KeyName = '" +
                              key + L"' ORDER BY KeyValue");
    }
};
ON_BOTH_ENGINES(OptionsTest);

using Row = OdbcSession::Row;
using Rows = std::vector<Row>;

TEST_P(OptionsTest, GetReadsTheStoredText) {
    EXPECT_EQ(L"Công ty TNHH Thương mại Hưng Thịnh", Get(L"CongTy", L"TenCongTy"));
    EXPECT_EQ(L"40", Get(L"BaoCao", L"SoDongMoiTrang"));
}

TEST_P(OptionsTest, GetOfAMissingRowGivesTheDefault) {
    EXPECT_EQ(L"(default)", Get(L"CongTy", L"Không có"));
    EXPECT_EQ(L"(default)", Get(L"Không có", L"TenCongTy"));
    EXPECT_EQ(L"(default)", Get(L"", L""));
    EXPECT_EQ(L"", GetOption(Db(), {L"x", L"y"}, L""));
}

TEST_P(OptionsTest, GetOfANullOrEmptyTextGivesTheDefault) {
    EXPECT_EQ(L"(default)", Get(L"BaoCao", L"NguoiLap")) << "null";
    EXPECT_EQ(L"(default)", Get(L"BaoCao", L"GhiChuCuoiTrang")) << "empty";
}

TEST_P(OptionsTest, GetAfterAnErrorGivesTheDefault) {
    ASSERT_SUCCEEDED(Execute(L"Drop Table Options"));
    std::wstring value;
    const PlainBox box = WhileClosingBox([&] { value = Get(L"CongTy", L"TenCongTy"); });
    EXPECT_EQ(L"(default)", value);
    EXPECT_NE(L"", box.text) << "the failed look-up is shown";
    WhileClosingBox([&] { value = GetOption(Database{}, {L"a", L"b"}, L"không"); });
    EXPECT_EQ(L"không", value) << "no connection";
}

TEST_P(OptionsTest, SetInsertsAndThenUpdates) {
    EXPECT_EQ(0, Set(L"Mục", L"một"));
    EXPECT_EQ(Rows{(Row{L"một", std::nullopt})}, Stored(L"Mục"));
    EXPECT_EQ(0, Set(L"Mục", L"hai"));
    EXPECT_EQ(Rows{(Row{L"hai", std::nullopt})}, Stored(L"Mục"));
    EXPECT_EQ(L"hai", Get(L"Thử", L"Mục"));
    EXPECT_TRUE(TopWindows().empty());
}

TEST_P(OptionsTest, DescriptionIsStoredWithOneTrailingBlank) {
    EXPECT_EQ(0, Set(L"M", L"một", L"Ghi chú"));
    EXPECT_EQ(Rows{(Row{L"một", L"Ghi chú "})}, Stored(L"M"));
    EXPECT_EQ(0, Set(L"M", L"hai", L"Khác"));
    EXPECT_EQ(Rows{(Row{L"hai", L"Khác "})}, Stored(L"M"));
    EXPECT_EQ(0, Set(L"M", L"ba"));
    EXPECT_EQ(Rows{(Row{L"ba", L"Khác "})}, Stored(L"M")) << "an empty one changes nothing";
}

TEST_P(OptionsTest, InsertOnlyAddsASecondRow) {
    EXPECT_EQ(0, Set(L"M", L"1"));
    EXPECT_EQ(0, Set(L"M", L"2", L"", true));
    EXPECT_EQ(2u, Stored(L"M").size());
    EXPECT_EQ(0, Set(L"M", L"3"));
    EXPECT_EQ(Rows(2, Row{L"3", std::nullopt}), Stored(L"M")) << "both rows are the setting";
}

TEST_P(OptionsTest, TextsAreStoredAsTheyAre) {
    for (const wchar_t* text : {L"O'Brien", L"'); Delete From Options; --", L"a)", L"50%_"}) {
        EXPECT_EQ(0, Set(L"M", text));
        EXPECT_EQ(text, Get(L"Thử", L"M"));
    }
    EXPECT_EQ(0, Set(L"K'", L"x"));
    EXPECT_EQ(L"x", Get(L"Thử", L"K'"));
}

TEST_P(OptionsTest, FailedStatementIsShownOnceAndItsNumberReturned) {
    ASSERT_SUCCEEDED(Execute(L"Drop Table Options"));
    long error = 0;
    const PlainBox box = WhileClosingBox([&] { error = Set(L"Mục", L"1", L"", true); });
    EXPECT_NE(0, error);
    const std::wstring head = L"Không thể lưu được khoáThử-Mục. Lỗi là ";
    EXPECT_EQ(head, box.text.substr(0, head.size()));
    EXPECT_LT(head.size(), box.text.size()) << "the error's own text follows";
    EXPECT_EQ(L"", box.title);
    EXPECT_EQ(std::vector<int>{IDOK}, box.buttons);
}

TEST_P(OptionsTest, FailedLookUpLeadsToTheUpdate) {
    ASSERT_SUCCEEDED(Execute(L"Drop Table Options"));
    const TempDir folder;
    const std::wstring trace = folder.File(L"trace.txt");
    SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", trace.c_str());
    PlainBox lookUp, update;
    DialogDriver user([&] {
        lookUp = ReadPlainBox();
        update = ReadPlainBox();
    });
    const long error = Set(L"M", L"1");
    user.Finish();
    SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", nullptr);
    EXPECT_NE(0, error);
    EXPECT_EQ(L"VnDesk", lookUp.title);
    EXPECT_EQ(0u, update.text.find(L"Không thể lưu được khoáThử-M. Lỗi là "))
        << ToUtf8(update.text);
    if (RunningUnderWine()) { // elsewhere nothing writes the trace
        const std::wstring statements = ReadUtf8File(trace);
        EXPECT_NE(std::wstring::npos, statements.find(L"\nUpdate Options Set KeyValue="))
            << ToUtf8(statements);
        EXPECT_EQ(std::wstring::npos, statements.find(L"Insert")) << ToUtf8(statements);
    }
}

} // namespace
} // namespace vndesk::test
