// SPDX-License-Identifier: MIT
// Opening, counting and reading record sets.
#include "data/data_fixture.h"

#include "comkit/base/com_error.h"
#include "find/field_info.h"

namespace vndesk::test {
namespace {

class RecordsetTest : public DataTest {
protected:
    std::wstring NameOf(Recordset& rows) { return NullToTextOf(rows.Value(L"Name")); }
    static std::wstring NullToTextOf(const _variant_t& value) {
        return value.vt == VT_BSTR ? value.bstrVal : L"(no text)";
    }
};
ON_BOTH_ENGINES(RecordsetTest);

// --- OpenRecordset ---

TEST_P(RecordsetTest, OpensOnAStatementAndGivesZero) {
    Recordset rows;
    EXPECT_EQ(0, OpenRecordset(Db(), rows, L"Select * From [User] Order By Code"));
    EXPECT_FALSE(rows.Eof());
    EXPECT_EQ(5, rows.FieldCount());
    EXPECT_EQ(L"NGUYỄN VĂN HƯNG", [&] {
        std::wstring name = NameOf(rows);
        CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
        return name;
    }());
    EXPECT_EQ(1, static_cast<long>(rows.Value(0L)));
    EXPECT_TRUE(TopWindows().empty());
}

TEST_P(RecordsetTest, OpensAWholeTableByItsName) {
    Recordset rows;
    EXPECT_EQ(0, OpenRecordset(Db(), rows, L"Groups"));
    EXPECT_EQ(5, CountRecords(rows));
    // Code, name, description, then a column of rights for each menu bar.
    EXPECT_EQ(6, rows.FieldCount());
    EXPECT_EQ(0, lstrcmpiW(rows.FieldName(3).c_str(), L"P1"));
    EXPECT_EQ(0, OpenRecordset(Db(), rows, L"Menu")) << "the same object again";
    EXPECT_EQ(3, CountRecords(rows));
}

TEST_P(RecordsetTest, FailureIsShownWithTheProvidersDescriptionAndItsNumberReturned) {
    const std::wstring statement = L"Select * From KhongCo";
    std::wstring description;
    HRESULT number = S_OK;
    Recordset direct;
    direct.Create(Db());
    try {
        direct.Open(statement);
    } catch (const ComError& error) {
        description = error.Description();
        number = error.Code();
    }
    ASSERT_NE(L"", description);

    Recordset rows;
    long error = 0;
    const PlainBox box = WhileClosingBox([&] { error = OpenRecordset(Db(), rows, statement); });
    EXPECT_EQ(L"VnDesk", box.title);
    EXPECT_EQ(description, box.text);
    EXPECT_EQ(std::vector<int>{IDOK}, box.buttons);
    EXPECT_NE(0, error);
    EXPECT_EQ(number, error);
    EXPECT_EQ(0, OpenRecordset(Db(), rows, L"Select * From [User]")) << "the next one works";
}

TEST_P(RecordsetTest, FailureAfterAWriteSaysThatItWasMade) {
    const std::wstring written = L"Đã ghi, nhưng không đọc lại được. Hãy mở lại để xem.\r\n";
    Recordset rows;
    Database told = Db();
    told.settings.OnConnectionError = ConnectionErrors::ShowReason;
    const auto shown = [&](const Database& database, Failure failure) {
        return WhileClosingBox([&] {
                   EXPECT_NE(0, OpenRecordset(database, rows, L"Select * From KhongCo", nullptr,
                                              failure));
               })
            .text;
    };
    EXPECT_TRUE(shown(told, Failure::ShownAfterWrite).starts_with(written));
    const std::wstring plain = shown(Db(), Failure::Shown);
    EXPECT_FALSE(plain.starts_with(written));
    EXPECT_EQ(plain, shown(Db(), Failure::ShownAfterWrite)) << "as 1.0";
    EXPECT_FALSE(shown(told, Failure::Shown).starts_with(written));
}

// --- CountRecords ---

TEST_P(RecordsetTest, CountsRowsAndLeavesTheFirstOneCurrent) {
    Recordset rows;
    ASSERT_EQ(0, OpenRecordset(Db(), rows, L"Select * From [User] Order By Code"));
    EXPECT_EQ(7, CountRecords(rows));
    EXPECT_EQ(1, static_cast<long>(rows.Value(0L)));
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_EQ(7, CountRecords(rows)) << "from the middle";
    EXPECT_EQ(1, static_cast<long>(rows.Value(0L)));
    rows.MoveLast();
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
    EXPECT_EQ(7, CountRecords(rows)) << "from the end";
    EXPECT_EQ(1, static_cast<long>(rows.Value(0L)));
}

TEST_P(RecordsetTest, CountsNothing) {
    Recordset rows;
    ASSERT_EQ(0, OpenRecordset(Db(), rows, L"Select * From [User] Where Code=0"));
    EXPECT_EQ(0, CountRecords(rows));
    EXPECT_TRUE(rows.Eof());
    Recordset unopened;
    EXPECT_EQ(0, CountRecords(unopened));
    unopened.Create(Db());
    EXPECT_EQ(0, CountRecords(unopened));
    EXPECT_TRUE(TopWindows().empty());
}

// --- LastValue ---

TEST_P(RecordsetTest, LastValueIsTheHighestCodeAfterAnInsert) {
    EXPECT_EQ(8, LastValue(Db(), L"Groups", L"Code"));
    ASSERT_TRUE(SUCCEEDED(Execute(L"Insert Into Groups([Name]) Values('Nhóm mới')")));
    const long added = LastValue(Db(), L"Groups", L"Code");
    EXPECT_LT(8, added);
    EXPECT_EQ(L"Nhóm mới",
              Value(L"Select [Name] From Groups Where Code=" + std::to_wstring(added)));
}

TEST_P(RecordsetTest, LastValueOfAnEmptyTableIsZero) {
    ASSERT_TRUE(SUCCEEDED(Execute(L"Delete From SubMenu")));
    EXPECT_EQ(0, LastValue(Db(), L"SubMenu", L"ID"));
}

TEST_P(RecordsetTest, LastValueOfAFailingStatementIsZeroAfterTheMessage) {
    long value = -1;
    const PlainBox box = WhileClosingBox([&] { value = LastValue(Db(), L"KhongCo", L"Code"); });
    EXPECT_EQ(0, value);
    EXPECT_EQ(L"VnDesk", box.title);
}

TEST_P(RecordsetTest, LastValueMayFailQuietly) {
    EXPECT_EQ(0, LastValue(Db(), L"KhongCo", L"Code", Failure::Ignored));
    EXPECT_TRUE(TopWindows().empty());
    EXPECT_EQ(8, LastValue(Db(), L"Groups", L"Code", Failure::Ignored));
}

TEST_P(RecordsetTest, LastValueOfATextColumnIsZero) {
    EXPECT_EQ(0, LastValue(Db(), L"TinhThanh", L"Name"));
}

// --- ReadFieldInfo ---

constexpr wchar_t kCustomers[] = L"Select * From LstFld Where [InTable]='KhachHang'";

TEST_P(RecordsetTest, FieldCatalogueHasOneSpareEntryAndNoNull) {
    const FieldInfo fields = ReadFieldInfo(Db(), kCustomers, L"[code]");
    EXPECT_EQ((std::vector<long>{10, 10, 10, 11, 8, 3, 13, 1, 0}), fields.FieldType);
    std::vector<std::wstring> relations(9);
    relations[2] = L"TinhThanh";
    EXPECT_EQ(relations, fields.FieldRelation);
}

TEST_P(RecordsetTest, FieldCatalogueFollowsTheOrderColumn) {
    const FieldInfo fields = ReadFieldInfo(Db(), kCustomers, L"[code] Desc");
    EXPECT_EQ((std::vector<long>{1, 13, 3, 8, 11, 10, 10, 10, 0}), fields.FieldType);
    EXPECT_EQ(8u + 1, ReadFieldInfo(Db(), kCustomers, L"").FieldType.size());
}

TEST_P(RecordsetTest, FieldCatalogueOfAnUnknownTableIsTheSpareEntry) {
    const FieldInfo fields =
        ReadFieldInfo(Db(), L"Select * From LstFld Where [InTable]='KhongCo'", L"[code]");
    EXPECT_EQ(std::vector<long>{0}, fields.FieldType);
    EXPECT_EQ(std::vector<std::wstring>{L""}, fields.FieldRelation);
}

TEST_P(RecordsetTest, FieldCatalogueOfAFailingStatementIsTheSpareEntryAfterTheMessage) {
    FieldInfo fields;
    WhileClosingBox([&] { fields = ReadFieldInfo(Db(), L"Select * From KhongCo", L"[code]"); });
    EXPECT_EQ(std::vector<long>{0}, fields.FieldType);
    EXPECT_EQ(std::vector<std::wstring>{L""}, fields.FieldRelation);
}

} // namespace
} // namespace vndesk::test
