// SPDX-License-Identifier: MIT
// Hosts on MariaDB that have named its language: the bridge passes statements on as they are
// written, as an ODBC driver on Windows does.
#pragma once

#include "support/env.h"
#include "support/forms/administrator.h"

namespace vndesk::test {

// Each case runs with values in the text of statements, and with parameters.
class MariaDbTest : public testing::TestWithParam<const char*>, public Administrator {
protected:
    const AdministrationTest& Test() const override { return *test_; }

    void SetUp() override {
        if (!SampleDatabase::MariaDbAvailable())
            GTEST_SKIP() << "no MariaDB server: VNDESK_MARIADB is not set";
        test_ = std::make_unique<AdministrationTest>(false, SampleDatabase::MariaDb());
        test_->settings = SecuritySettings();
    }

    const std::wstring& Connection() const { return Test().database.ConnectionString(); }
    long Execute(const std::wstring& statement) const { return Test().database.Execute(statement); }
    // The cells of all rows, and the rows.
    Lines Rows(const std::wstring& statement) const {
        Lines rows;
        for (const auto& row : Test().database.Query(statement)) {
            std::wstring line;
            for (const auto& cell : row)
                line += (line.empty() ? L"" : L"|") + cell.value_or(L"(null)");
            rows.push_back(line);
        }
        return rows;
    }
    std::wstring Read(const std::wstring& statement) const { return Test().Read(statement); }

    const VariantInUse variant_{GetParam()};
    std::unique_ptr<AdministrationTest> test_;
};

#define ON_MARIADB(suite) INSTANTIATE_DIALECTS(suite, "MariaDb", "MariaDbBound")

// Texts that would end a literal, or whose backslashes would be read as escapes.
inline const Lines& CraftedNames() {
    static const Lines names = {L"O'Brien",
                                L"x' OR 1=1 -- x",
                                L"\\' OR 1=1 #",
                                L"chéo\\' ngược\\",
                                L"\\\\''\\''",
                                L"`hai` \"ba\" [bốn] {ts} ?:a@b/*!*/",
                                L"Đỗ Thị Hường ẰẴỶỲ ₫",
                                L"Mới Út Ộộ Ớớ ÙÚ",
                                L"100%_\\%\\_"};
    return names;
}

} // namespace vndesk::test
