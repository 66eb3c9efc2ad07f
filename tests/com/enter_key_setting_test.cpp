// SPDX-License-Identifier: MIT
// clsSettings.EnterKey as hosts see it.
#include <gtest/gtest.h>
#include <wrl/client.h>

#include "support/check_hr.h"
#include "support/late_bound.h"
#include "support/new_object.h"
#include "vndesk_idl.h"

namespace vndesk::test {
namespace {

EnterKey EnterKeyOf(ISettings& settings) {
    auto key = static_cast<EnterKey>(-1);
    EXPECT_SUCCEEDED(settings.get_EnterKey(&key));
    return key;
}

TEST(EnterKeySetting, MovesOnAtFirstAndConfirmsWithWhatIsRecommended) {
    const auto settings = NewObject<ISettings>(L"VnDesk.clsSettings");
    EXPECT_EQ(vnEnterMovesOn, EnterKeyOf(*settings.Get()));
    EXPECT_SUCCEEDED(settings->UseRecommended());
    EXPECT_EQ(vnEnterConfirms, EnterKeyOf(*settings.Get()));
    EXPECT_SUCCEEDED(settings->put_EnterKey(vnEnterMovesOn));
    EXPECT_EQ(vnEnterMovesOn, EnterKeyOf(*settings.Get()));
}

TEST(EnterKeySetting, OtherNumbersAreRefusedAndChangeNothing) {
    const auto settings = NewObject<ISettings>(L"VnDesk.clsSettings");
    EXPECT_SUCCEEDED(settings->put_EnterKey(vnEnterConfirms));
    for (const long other : {-1L, 2L, 0x7FFFFFFFL})
        EXPECT_HR(E_INVALIDARG, settings->put_EnterKey(static_cast<EnterKey>(other)));
    EXPECT_EQ(vnEnterConfirms, EnterKeyOf(*settings.Get()));
    EXPECT_HR(E_POINTER, settings->get_EnterKey(nullptr));
    const LateBound late = LateBound::Create(L"VnDesk.clsSettings");
    late.Put(L"EnterKey", L"1");
    EXPECT_EQ(1L, static_cast<long>(late.Get(L"EnterKey")));
}

} // namespace
} // namespace vndesk::test
