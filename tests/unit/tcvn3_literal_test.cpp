// SPDX-License-Identifier: MIT
// Which texts can be written as literals of the sources, and what they are stored as.
#include "text/tcvn3_literal.h"

#include <gtest/gtest.h>

#include <string_view>

using namespace vndesk;

namespace {

// The versions of clang-format take the operator's name apart in different ways.
// clang-format off
template <tcvn3::EncodedText Text>
concept Compiles = requires { operator""_tcvn3<Text>(); };
// clang-format on

constexpr std::wstring_view kBare = L"ăâêôơưđ ĂÂÊÔƠƯĐ"_tcvn3;
constexpr std::wstring_view kToned = L"Mỗi ngày 5 chữ, \"ỹ\"\n"_tcvn3;

} // namespace

TEST(Tcvn3Literal, EncodesSmallLettersAndBareCapitals) {
    EXPECT_EQ(kBare, L"\u00A8\u00A9\u00AA\u00AB\u00AC\u00AD\u00AE "
                     L"\u00A1\u00A2\u00A3\u00A4\u00A5\u00A6\u00A7");
}

TEST(Tcvn3Literal, KeepsWhatIsNotVietnamese) {
    EXPECT_EQ(kToned, L"M\u00E7i ng\u00B5y 5 ch\u00F7, \"\u00FC\"\n");
    EXPECT_TRUE(*L""_tcvn3 == L'\0');
}

TEST(Tcvn3Literal, CompilesWhatTcvn3CanHold) {
    EXPECT_TRUE(Compiles<L"Đồng ý">);
    EXPECT_TRUE(Compiles<L"Delete">);
    EXPECT_TRUE(Compiles<L"">);
}

TEST(Tcvn3Literal, DoesNotCompileTonedCapitals) {
    EXPECT_FALSE(Compiles<L"Ấn phím">);
    EXPECT_FALSE(Compiles<L"THÔNG BÁO">);
    EXPECT_FALSE(Compiles<L"Ỹ">);
}

TEST(Tcvn3Literal, DoesNotCompileLettersOfOtherLanguages) {
    EXPECT_FALSE(Compiles<L"Zürich">);
    EXPECT_FALSE(Compiles<L"5 €">);
    EXPECT_FALSE(Compiles<L"e\u0302">) << "letters must be precomposed";
}

// A text of before, whose letters are the codes themselves: converted a second time, it would be
// lost.
TEST(Tcvn3Literal, DoesNotCompileTextsThatAreTcvn3Already) {
    EXPECT_FALSE(Compiles<L"§ång ý">);
    EXPECT_FALSE(Compiles<L"ch\u00ADa">);
}
