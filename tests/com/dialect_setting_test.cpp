// SPDX-License-Identifier: MIT
// clsSettings.Dialect as hosts see it.
#include <gtest/gtest.h>
#include <comutil.h>
#include <wrl/client.h>

#include "support/check_hr.h"
#include "support/late_bound.h"
#include "support/new_object.h"
#include "vndesk_idl.h"

namespace vndesk::test {
namespace {

Microsoft::WRL::ComPtr<ISettings> NewSettings() {
    return NewObject<ISettings>(L"VnDesk.clsSettings");
}

Dialects DialectOf(ISettings& settings) {
    auto dialect = static_cast<Dialects>(-1);
    EXPECT_SUCCEEDED(settings.get_Dialect(&dialect));
    return dialect;
}

TEST(DialectSetting, IsAutoAtFirstAndWithWhatIsRecommended) {
    const auto settings = NewSettings();
    EXPECT_EQ(vnDialectAuto, DialectOf(*settings.Get()));
    EXPECT_SUCCEEDED(settings->UseRecommended());
    EXPECT_EQ(vnDialectAuto, DialectOf(*settings.Get()));
}

TEST(DialectSetting, TakesEachEngine) {
    const auto settings = NewSettings();
    for (const Dialects dialect : {vnDialectJet, vnDialectSqlServer, vnDialectPostgreSql,
                                   vnDialectSqlite, vnDialectMySql, vnDialectAuto}) {
        EXPECT_SUCCEEDED(settings->put_Dialect(dialect));
        EXPECT_EQ(dialect, DialectOf(*settings.Get()));
    }
}

TEST(DialectSetting, OtherNumbersAreRefusedAndChangeNothing) {
    const auto settings = NewSettings();
    EXPECT_SUCCEEDED(settings->put_Dialect(vnDialectSqlite));
    for (const long other : {-1L, 6L, 0x7FFFFFFFL})
        EXPECT_HR(E_INVALIDARG, settings->put_Dialect(static_cast<Dialects>(other)));
    EXPECT_EQ(vnDialectSqlite, DialectOf(*settings.Get()));
    EXPECT_HR(E_POINTER, settings->get_Dialect(nullptr));
}

TEST(DialectSetting, ScriptsWriteItsNumber) {
    const LateBound settings = LateBound::Create(L"VnDesk.clsSettings");
    settings.Put(L"Dialect", L"3");
    EXPECT_EQ(3L, static_cast<long>(settings.Get(L"Dialect")));
}

} // namespace
} // namespace vndesk::test
