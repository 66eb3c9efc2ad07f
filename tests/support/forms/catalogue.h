// SPDX-License-Identifier: MIT
// A catalogue of a host, for the forms and boxes that look codes and names up: names that differ in
// letter case, apostrophes, quotes, Vietnamese letters and nulls in both columns.
#pragma once

#include "support/forms/administration.h"

namespace vndesk::test {

// The items in the order of the column Thu.
enum CatalogueItem { kAbaca, kShirt, kAbcViet, kOBrien, kLamp, kTorch, kFan, kCodeless, kNameless };

struct CatalogueRow {
    const wchar_t* code; // null for none
    const wchar_t* name;
};

constexpr CatalogueRow kCatalogue[] = {
    {L"A1", L"abaca"},          {L"A2", L"Áo sơ mi"},        {L"a3", L"ABC Việt"},
    {L"B'1", L"O'Brien"},       {L"Đ1", L"Đèn bàn"},         {L"Đ2", L"ĐÈN PIN"},
    {L"Q\"1", L"Quạt \"gió\""}, {nullptr, L"Hàng không mã"}, {L"N1", nullptr},
};

inline constexpr wchar_t kAllItems[] = L"Select Ma,Ten From DanhMuc Order By Thu";

class Catalogue {
public:
    explicit Catalogue(bool server)
        : server(server), database(server ? SampleDatabase::Server() : SampleDatabase::Embedded()) {
        const std::wstring text = server ? L" citext" : L" varchar(200) collate nocase";
        database.Execute(L"create table DanhMuc (Thu integer, Ma" + text + L", Ten" + text + L")");
        int order = 0;
        for (const CatalogueRow& row : kCatalogue)
            database.Execute(L"insert into DanhMuc values (" + std::to_wstring(++order) + L"," +
                             Quoted(row.code) + L"," + Quoted(row.name) + L")");
    }

    // Rows "M000001" and "Mặt hàng 000001", and so on, in their own table.
    void AddManyItems(int count) const {
        database.Execute(L"create table NhieuMuc (Ma varchar(20), Ten varchar(100))");
        const std::wstring n = std::to_wstring(count);
        database.Execute(
            server
                ? L"insert into NhieuMuc select 'M' || lpad(g::text, 6, '0'), 'Mặt hàng ' || "
                  L"lpad(g::text, 6, '0') from generate_series(1, " +
                      n + L") g"
                : L"with recursive n(g) as (select 1 union all select g + 1 from n where g < " + n +
                      L") insert into NhieuMuc select printf('M%06d', g), "
                      L"printf('Mặt hàng %06d', g) from n");
    }

    // As the library writes a text for this kind of database.
    std::wstring Prefixed(const std::wstring& literal) const {
        return (server ? L"N" : L"") + literal;
    }

    const bool server;
    const SampleDatabase database;

private:
    static std::wstring Quoted(const wchar_t* text) {
        if (!text)
            return L"null";
        std::wstring quoted = L"'";
        for (; *text; ++text)
            quoted += *text == L'\'' ? L"''" : std::wstring(1, *text);
        return quoted + L"'";
    }
};

// Each case runs on the embedded database and on the server.
class CatalogueTest : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const bool server = CurrentVariant().server;
        if (server && !SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no PostgreSQL server: VNDESK_PG is not set";
        catalogue_ = std::make_unique<Catalogue>(server);
    }

    const Catalogue& Test() const { return *catalogue_; }

private:
    const VariantInUse variant_{GetParam()};
    std::unique_ptr<Catalogue> catalogue_;
};

} // namespace vndesk::test
