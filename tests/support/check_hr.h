// SPDX-License-Identifier: MIT
// Assertions on HRESULTs that print the number in hexadecimal and the system's text.
#pragma once
#include <gtest/gtest.h>
#include <windows.h>

#include "support/text.h"

namespace vndesk::test {

inline testing::AssertionResult HrSucceeded(const char* text, HRESULT hr) {
    if (SUCCEEDED(hr))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << text << " failed: " << HrText(hr);
}

inline testing::AssertionResult HrFailed(const char* text, HRESULT hr) {
    if (FAILED(hr))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << text << " should have failed, gave " << HrText(hr);
}

inline testing::AssertionResult HrEqual(const char* wantedText, const char* text, HRESULT wanted,
                                        HRESULT hr) {
    if (hr == wanted)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << text << " gave " << HrText(hr) << ", wanted "
                                       << wantedText << " = " << HrText(wanted);
}

} // namespace vndesk::test

#define EXPECT_SUCCEEDED(expression) EXPECT_PRED_FORMAT1(::vndesk::test::HrSucceeded, (expression))
#define ASSERT_SUCCEEDED(expression) ASSERT_PRED_FORMAT1(::vndesk::test::HrSucceeded, (expression))
#define EXPECT_FAILED(expression) EXPECT_PRED_FORMAT1(::vndesk::test::HrFailed, (expression))
#define EXPECT_HR(wanted, expression)                                                              \
    EXPECT_PRED_FORMAT2(::vndesk::test::HrEqual, (wanted), (expression))
#define ASSERT_HR(wanted, expression)                                                              \
    ASSERT_PRED_FORMAT2(::vndesk::test::HrEqual, (wanted), (expression))
