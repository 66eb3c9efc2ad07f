// SPDX-License-Identifier: MIT
// Libraries of the platform that are not there, or not whole.
#include "comkit/base/library.h"

#include <gtest/gtest.h>

namespace vndesk::test {
namespace {

HRESULT ErrorOf(const wchar_t* library, const char* function) {
    FARPROC found = nullptr;
    return ToHresult([&] { Library(library).Find(found, function); });
}

TEST(PlatformLibrary, FunctionIsFound) {
    EXPECT_EQ(S_OK, ErrorOf(L"kernel32.dll", "GetTickCount"));
}

TEST(PlatformLibrary, MissingLibraryIsTheError) {
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND),
              ErrorOf(L"khong-co-o-dau-ca.dll", "GetTickCount"));
}

TEST(PlatformLibrary, MissingFunctionIsTheError) {
    EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND), ErrorOf(L"kernel32.dll", "KhongCoODauCa"));
}

} // namespace
} // namespace vndesk::test
