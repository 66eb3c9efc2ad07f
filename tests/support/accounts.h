// SPDX-License-Identifier: MIT
// What the tests of passwords and locks share: a database with VnUser and VnAudit, and what stands
// in it.
#pragma once

#include <comutil.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "support/check_hr.h"
#include "support/engine_variant.h"
#include "support/sample_database.h"
#include "support/security_settings.h"

namespace vndesk::test {

// A record of the password that costs a thousandth of a second: the cost is read from the record.
std::wstring CheapHash(std::wstring_view password);

// Each case runs on the embedded database and on the server, and in dialects of it.
class Accounts : public testing::TestWithParam<const char*> {
protected:
    static constexpr long kThu = 901;
    static constexpr wchar_t kThuName[] = L"thu";
    static constexpr double kAbc = 1401; // the number of "abc"

    void SetUp() override;

    bool OnServer() const { return CurrentVariant().server; }
    const std::wstring& Connect() const { return database_->ConnectionString(); }

    void AddUser(long code, const std::wstring& name, std::optional<double> number);
    // Whatever the user's number is, this record is his password from now on.
    void GiveHash(long code, const std::wstring& record, double number = -1);
    // Columns of VnUser: "LockedUntil='...'".
    void SetKept(long code, const std::wstring& assignments);

    // Columns of the tables as text; empty for Null and for no row.
    std::wstring Kept(const std::wstring& column, long code = kThu) const;
    std::wstring Number(long code = kThu) const;
    // A time of VnUser, in whole seconds from now; the column must not be Null.
    long SecondsUntil(const std::wstring& column, long code = kThu) const;
    // The time of the database so many seconds from now, as a literal.
    std::wstring TimeLiteral(long seconds) const;

    // With the settings of the test, or with others.
    long Verify(const wchar_t* name, const wchar_t* password) const;
    long Verify(const SecuritySettings& settings, const wchar_t* name,
                const wchar_t* password) const;

    const VariantInUse variant_{GetParam()};
    SecuritySettings settings_;
    std::unique_ptr<SampleDatabase> database_;
};

#define INSTANTIATE_ACCOUNTS(suite) INSTANTIATE_DATABASES(suite)
// What hangs on accounts is always bound.
#define INSTANTIATE_ACCOUNTS_IN_DIALECTS(suite)                                                    \
    INSTANTIATE_ACCOUNTS(suite);                                                                   \
    INSTANTIATE_DIALECTS(suite, "PostgreSqlBound", "SqlServerBound")

} // namespace vndesk::test
