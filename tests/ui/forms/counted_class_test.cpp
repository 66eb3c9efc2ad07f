// SPDX-License-Identifier: MIT
// Window classes that several users share.
#include "forms/window/counted_class.h"

#include <gtest/gtest.h>

#include <optional>

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"

namespace vndesk {
namespace {

constexpr wchar_t kName[] = L"VnDeskCountedClassTest";

bool IsThere() {
    WNDCLASSEXW found = {};
    found.cbSize = sizeof found;
    return GetClassInfoExW(ModuleInstance(), kName, &found) != FALSE;
}

HWND Window() {
    return CreateWindowExW(0, kName, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                           ModuleInstance(), nullptr);
}

TEST(CountedClass, IsThereUntilItsLastUserGoes) {
    int users = 0;
    std::optional<CountedClass> first, second;
    first.emplace(ClassDesign{kName, DefWindowProcW}, users);
    second.emplace(ClassDesign{kName, DefWindowProcW}, users);
    first.reset();
    EXPECT_TRUE(IsThere());
    second.reset();
    EXPECT_FALSE(IsThere());
    EXPECT_EQ(0, users);
}

TEST(CountedClass, ThatCannotBeRegisteredIsAnErrorAndNoUser) {
    int users = 0;
    const auto fail = [&] { CountedClass({kName, DefWindowProcW, 0, -1}, users); };
    EXPECT_TRUE(FAILED(Trap(fail).code));
    EXPECT_EQ(0, users);
}

TEST(CountedClass, ThatStillHasWindowsServesItsNextUserAndGoesWithHim) {
    int users = 0;
    HWND window = nullptr;
    {
        const CountedClass first({kName, DefWindowProcW}, users);
        window = Window();
        ASSERT_NE(nullptr, window);
    }
    EXPECT_TRUE(IsThere());
    {
        const CountedClass second({kName, DefWindowProcW}, users);
        const HWND other = Window();
        EXPECT_NE(nullptr, other);
        DestroyWindow(other);
        DestroyWindow(window);
    }
    EXPECT_FALSE(IsThere());
}

} // namespace
} // namespace vndesk
