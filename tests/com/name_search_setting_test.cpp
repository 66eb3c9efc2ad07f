// SPDX-License-Identifier: MIT
// How names are found, as hosts see it: clsSettings and the property of the data combo.
#include <gtest/gtest.h>
#include <comutil.h>
#include <olectl.h>
#include <wrl/client.h>

#include "support/check_hr.h"
#include "support/late_bound.h"
#include "support/new_object.h"
#include "support/property_bag.h"
#include "vndesk_idl.h"

namespace vndesk::test {
namespace {

using Microsoft::WRL::ComPtr;

template <class Object> AccentSensitivity AccentsOf(const ComPtr<Object>& object) {
    auto value = static_cast<AccentSensitivity>(-1);
    EXPECT_SUCCEEDED(object->get_AccentSensitivity(&value));
    return value;
}

VARIANT_BOOL AnywhereOf(const ComPtr<ISettings>& settings) {
    VARIANT_BOOL value = 1;
    EXPECT_SUCCEEDED(settings->get_MatchAnywhere(&value));
    return value;
}

TEST(NameSearchSetting, IsThatOfTheFirstVersionUntilTheRecommendedIsAskedFor) {
    const auto settings = NewObject<ISettings>(L"VnDesk.clsSettings");
    EXPECT_EQ(vnAccentSensitive, AccentsOf(settings));
    EXPECT_EQ(VARIANT_FALSE, AnywhereOf(settings));
    EXPECT_SUCCEEDED(settings->UseRecommended());
    EXPECT_EQ(vnAccentSmart, AccentsOf(settings));
    EXPECT_EQ(VARIANT_TRUE, AnywhereOf(settings));
}

TEST(NameSearchSetting, TakesEachValueAndRefusesOthers) {
    const auto settings = NewObject<ISettings>(L"VnDesk.clsSettings");
    for (const auto value : {vnAccentInsensitive, vnAccentSensitive, vnAccentSmart}) {
        EXPECT_SUCCEEDED(settings->put_AccentSensitivity(value));
        EXPECT_EQ(value, AccentsOf(settings));
    }
    for (const long other : {-1L, 3L, 0x7FFFFFFFL})
        EXPECT_HR(E_INVALIDARG,
                  settings->put_AccentSensitivity(static_cast<AccentSensitivity>(other)));
    EXPECT_EQ(vnAccentSmart, AccentsOf(settings));
    EXPECT_HR(E_POINTER, settings->get_AccentSensitivity(nullptr));
    EXPECT_SUCCEEDED(settings->put_MatchAnywhere(VARIANT_TRUE));
    EXPECT_EQ(VARIANT_TRUE, AnywhereOf(settings));
    const LateBound late = LateBound::Create(L"VnDesk.clsSettings");
    late.Put(L"AccentSensitivity", L"2");
    EXPECT_EQ(2L, static_cast<long>(late.Get(L"AccentSensitivity")));
}

TEST(NameSearchSetting, DataComboHasItsOwn) {
    const auto combo = NewObject<IDataCombo2>(L"VnDesk.DataCombo1");
    EXPECT_EQ(vnAccentSensitive, AccentsOf(combo));
    EXPECT_SUCCEEDED(combo->put_AccentSensitivity(vnAccentSmart));
    EXPECT_EQ(vnAccentSmart, AccentsOf(combo));
    EXPECT_HR(CTL_E_INVALIDPROPERTYVALUE,
              combo->put_AccentSensitivity(static_cast<AccentSensitivity>(3)));
    EXPECT_EQ(vnAccentSmart, AccentsOf(combo));
    EXPECT_HR(E_POINTER, combo->get_AccentSensitivity(nullptr));
    // The interface of 1.0 is the same object, and scripts reach both.
    ComPtr<IDataCombo1> first;
    ASSERT_SUCCEEDED(combo.As(&first));
    EXPECT_SUCCEEDED(first->put_BackColor(255));
    OLE_COLOR color = 0;
    EXPECT_SUCCEEDED(combo->get_BackColor(&color));
    EXPECT_EQ(255u, color);
    const LateBound late = LateBound::Create(L"VnDesk.DataCombo1");
    late.Put(L"AccentSensitivity", L"2");
    EXPECT_EQ(2L, static_cast<long>(late.Get(L"AccentSensitivity")));
    late.Call(L"AddItem", {L"Đà Nẵng"});
    EXPECT_EQ(1L, static_cast<long>(late.Get(L"ListCount")));
}

TEST(NameSearchSetting, DesignOfADataComboHoldsWhatItHeldBefore) {
    const auto combo = NewObject<IDataCombo2>(L"VnDesk.DataCombo1");
    EXPECT_SUCCEEDED(combo->put_AccentSensitivity(vnAccentSmart));
    ComPtr<IPersistPropertyBag> persist;
    ASSERT_SUCCEEDED(combo.As(&persist));
    PropertyBag bag;
    EXPECT_SUCCEEDED(persist->Save(&bag, TRUE, TRUE));
    EXPECT_EQ(9u, bag.written.size());
    EXPECT_EQ(0u, bag.values.count(L"AccentSensitivity"));
}

} // namespace
} // namespace vndesk::test
