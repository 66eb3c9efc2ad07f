// SPDX-License-Identifier: MIT
// Numbers in words against a reader of its own, and read back.
#include "text/numbers/number_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace vndesk;

namespace {

const wchar_t* const kOnes[] = {L"không", L"một", L"hai", L"ba",  L"bốn",
                                L"năm",   L"sáu", L"bảy", L"tám", L"chín"};

// Read by the rules of school, one case after the other. `behind`: something higher came before.
std::wstring School(long number, bool behind) {
    if (number >= 1000000)
        return School(number / 1000000, false) + L" triệu" +
               (number % 1000000 ? L" " + School(number % 1000000, true) : L"");
    if (number >= 1000)
        return School(number / 1000, behind) + L" nghìn" +
               (number % 1000 ? L" " + School(number % 1000, true) : L"");
    if (number >= 100 || behind) {
        std::wstring words = kOnes[number / 100];
        words += L" trăm";
        const long rest = number % 100;
        if (rest > 0 && rest < 10)
            words += L" lẻ";
        return rest > 0 ? words + L" " + School(rest, false) : words;
    }
    if (number < 10)
        return kOnes[number];
    if (number == 10)
        return L"mười";
    if (number < 20)
        return number == 15 ? L"mười lăm" : std::wstring(L"mười ") + kOnes[number - 10];
    const std::wstring tens = std::wstring(kOnes[number / 10]) + L" mươi";
    switch (number % 10) {
    case 0:
        return tens;
    case 1:
        return tens + L" mốt";
    case 4:
        return tens + L" tư";
    case 5:
        return tens + L" lăm";
    default:
        return tens + L" " + kOnes[number % 10];
    }
}

#ifdef _WIN32
constexpr long kEnd = 100'000; // all of them natively
#else
constexpr long kEnd = 10'000'000;
#endif

// The first number of the range that is read otherwise, or the end.
long FirstReadOtherwise(long begin, long end) {
    // What stands behind the thousands is the same each time.
    std::vector<std::wstring> behind(1000);
    for (long i = 1; i < 1000; ++i)
        behind[static_cast<std::size_t>(i)] = L" " + School(i, true);
    std::wstring wanted;
    for (long thousand = begin; thousand < end; thousand += 1000) {
        const std::wstring thousands = School(thousand, false);
        for (long i = 0; i < 1000; ++i) {
            if (thousand == 0)
                wanted = School(i, false);
            else
                wanted.assign(thousands).append(behind[static_cast<std::size_t>(i)]);
            if (wanted != NumberToWords(FromInteger(thousand + i), 0))
                return thousand + i;
        }
    }
    return end;
}

TEST(NumberReaderTest, EveryNumberIsReadAsAtSchool) {
    EXPECT_EQ(L"một triệu hai trăm lẻ năm nghìn không trăm bốn mươi mốt", School(1205041, false));
    auto upper = std::async(std::launch::async, FirstReadOtherwise, kEnd / 2, kEnd);
    EXPECT_EQ(kEnd / 2, FirstReadOtherwise(0, kEnd / 2));
    EXPECT_EQ(kEnd, upper.get());
}

// The digits of a number in words, without knowing how it was written.
class ReadBack {
public:
    explicit ReadBack(const std::wstring& words) {
        std::size_t begin = 0;
        while (begin < words.size()) {
            const std::size_t end = std::min(words.find(L' ', begin), words.size());
            words_.push_back(words.substr(begin, end - begin));
            begin = end + 1;
        }
    }

    ExactNumber Number() {
        ExactNumber number;
        std::size_t at = 0;
        number.negative = words_[0] == L"âm";
        at += number.negative ? 1 : 0;
        const auto point = std::find(words_.begin(), words_.end(), L"phẩy");
        const auto whole = static_cast<std::size_t>(point - words_.begin());
        std::string digits(120, '0'); // from the right
        long group = 0;
        while (at < whole) {
            // Up to the last of the words for a power of ten.
            std::size_t end = at, power = 0;
            while (end < whole && !PowerOf(words_[end]))
                ++end;
            group = Below1000(at, end);
            for (; end < whole && PowerOf(words_[end]); ++end)
                power += PowerOf(words_[end]);
            // Thousands and millions of a higher group: its word comes later.
            if (power < 9)
                for (std::size_t later = end; later < whole; ++later) {
                    if (words_[later] != L"tỷ")
                        continue;
                    for (; later < whole && words_[later] == L"tỷ"; ++later)
                        power += 9;
                    break;
                }
            for (std::size_t i = power; group > 0; ++i, group /= 10)
                digits[digits.size() - 1 - i] = static_cast<char>('0' + group % 10);
            at = end;
        }
        number.whole = digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
        for (std::size_t i = whole + 1; i < words_.size(); ++i)
            number.fraction.push_back(static_cast<char>('0' + Digit(words_[i])));
        return number;
    }

private:
    static std::size_t PowerOf(const std::wstring& word) {
        return word == L"nghìn" ? 3 : word == L"triệu" ? 6 : word == L"tỷ" ? 9 : 0;
    }
    static long Digit(const std::wstring& word) {
        static const std::map<std::wstring, long> others = {{L"mốt", 1}, {L"tư", 4}, {L"lăm", 5}};
        if (const auto found = others.find(word); found != others.end())
            return found->second;
        for (long i = 0; i < 10; ++i)
            if (word == kOnes[i])
                return i;
        ADD_FAILURE() << "no digit";
        return 0;
    }
    long Below1000(std::size_t begin, std::size_t end) const {
        long value = 0, digit = 0;
        for (std::size_t i = begin; i < end; ++i) {
            const std::wstring& word = words_[i];
            if (word == L"trăm") {
                value += digit * 100;
                digit = 0;
            } else if (word == L"mươi") {
                value += digit * 10;
                digit = 0;
            } else if (word == L"mười") {
                value += 10;
            } else if (word != L"lẻ") {
                digit = Digit(word);
            }
        }
        return value + digit;
    }

    std::vector<std::wstring> words_;
};

TEST(NumberReaderTest, RandomDecimalsAreReadBack) {
    std::mt19937_64 random(1945);
    for (int round = 0; round < 20000; ++round) {
        // Numbers of every length, with runs of zeros.
        const auto bits = random();
        const int length = static_cast<int>(bits % 97);
        std::uint32_t high =
            length > 64 ? static_cast<std::uint32_t>(random()) >> (96 - length) : 0;
        std::uint64_t low = length == 0 ? 0 : random() >> (length >= 64 ? 0 : 64 - length);
        if (bits & 1024)
            low -= low % 1'000'000'000;
        const int scale = static_cast<int>((bits >> 12) % 29);
        const ExactNumber number = FromScaled(high, low, scale, (bits & 2048) != 0);
        const std::wstring words = NumberToWords(number, 0);
        ASSERT_EQ(number, ReadBack(words).Number()) << number.whole << "," << number.fraction;
        ASSERT_EQ(std::wstring::npos, words.find(L"  "));
    }
}

} // namespace
