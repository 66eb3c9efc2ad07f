// SPDX-License-Identifier: MIT
// What the library and ICU both know, compared: normal forms, letter case, the Vietnamese order.
// Differences that are meant stand here with their reasons.
#include <gtest/gtest.h>

#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "text/encodings/syllable.h"
#include "text/letters/collation.h"
#include "text/letters/letter_case.h"
#include "text/letters/marks.h"
#include "text/letters/normal_form.h"
#include "text/letters/tone_place.h"

using namespace vndesk;

namespace {

icu::UnicodeString ToIcu(const std::wstring& text) {
    return icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()),
                                         static_cast<int32_t>(text.size()));
}

std::wstring FromIcu(const icu::UnicodeString& text) {
    std::wstring result;
    for (int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1))
        result.push_back(static_cast<wchar_t>(text.char32At(i)));
    return result;
}

const icu::Normalizer2& Normalizer(bool composed) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::Normalizer2* found = composed ? icu::Normalizer2::getNFCInstance(error)
                                             : icu::Normalizer2::getNFDInstance(error);
    EXPECT_TRUE(U_SUCCESS(error));
    return *found;
}

std::wstring IcuForm(const std::wstring& text, bool composed) {
    UErrorCode error = U_ZERO_ERROR;
    return FromIcu(Normalizer(composed).normalize(ToIcu(text), error));
}

// Other alphabets are not taken apart: customers' names in them come composed from everywhere.
bool IsOurs(wchar_t ch) {
    return ch < 0x370 || (ch >= 0x1E00 && ch < 0x1F00) || ch == 0x212A || ch == 0x212B;
}

TEST(IcuNormalFormTest, EveryCharacterOfTheLatinBlocks) {
    int letters = 0;
    for (wchar_t ch = 1; ch < 0x2200; ++ch) {
        if (!IsOurs(ch))
            continue;
        const std::wstring text(1, ch);
        EXPECT_EQ(IcuForm(text, false), ToNfd(text)) << static_cast<long>(ch);
        EXPECT_EQ(IcuForm(text, true), ToNfc(text)) << static_cast<long>(ch);
        letters += ToNfd(text) != text;
    }
    EXPECT_LT(490, letters);
    for (const wchar_t other : {L'й', L'ά', L'й', L'가'}) {
        const std::wstring text(1, other);
        EXPECT_NE(IcuForm(text, false), ToNfd(text));
        EXPECT_EQ(text, ToNfd(text)) << "passes";
    }
}

TEST(IcuNormalFormTest, EveryMarkHasItsOrder) {
    for (wchar_t mark = kFirstMark; mark < static_cast<wchar_t>(kEndMark); ++mark)
        EXPECT_EQ(u_getCombiningClass(mark), MarkOrder(static_cast<char32_t>(mark)))
            << static_cast<long>(mark);
}

TEST(IcuNormalFormTest, RandomLettersWithMarks) {
    std::mt19937 random(7);
    const std::wstring letters = L"aAeEoOuUyYdđăâêôơưấậặợổ bcñzŵǖ\u1E69\u1E9B\u0292";
    for (int round = 0; round < 20000; ++round) {
        std::wstring text;
        for (unsigned length = random() % 12; length > 0; --length)
            text.push_back(random() % 3 == 0 ? letters[random() % letters.size()]
                                             : static_cast<wchar_t>(0x300 + random() % 0x70));
        ASSERT_EQ(IcuForm(text, false), ToNfd(text)) << round;
        ASSERT_EQ(IcuForm(text, true), ToNfc(text)) << round;
    }
}

TEST(IcuLetterCaseTest, EveryLetterOfTheEuropeanBlocks) {
    // Rare letters whose other case stands in blocks of its own, or which Greek and phonetics have
    // beside the usual ones: Ƀ ƙ ǅ ϐ and the like. They pass.
    std::set<wchar_t> upper, lower;
    for (wchar_t ch = 1; ch < 0x1F00; ch = ch == 0x58F ? 0x1E00 : ch + 1) {
        if (static_cast<UChar32>(ToUpperLetter(ch)) != u_toupper(ch))
            upper.insert(ch);
        if (static_cast<UChar32>(ToLowerLetter(ch)) != u_tolower(ch))
            lower.insert(ch);
    }
    for (const auto* differences : {&upper, &lower})
        for (const wchar_t ch : *differences) {
            EXPECT_TRUE(ch == 0xB5 || ch == 0x17F || (ch >= 0x180 && ch < 0x2B0) || ch == 0x345 ||
                        (ch >= 0x370 && ch < 0x400) || ch == 0x4C0 || ch == 0x4CF || ch == 0x1E9B)
                << static_cast<long>(ch);
            EXPECT_TRUE(ToUpperLetter(ch) == ch && ToLowerLetter(ch) == ch)
                << "passes: " << static_cast<long>(ch);
        }
    EXPECT_GT(150u, upper.size());
    EXPECT_GT(150u, lower.size());
}

// Texts whose words Vietnamese could have, in every mixture of letter case.
std::wstring Words(std::mt19937& random, int count) {
    static const std::vector<std::wstring> syllables = [] {
        std::vector<std::wstring> found;
        const std::wstring vowels = L"aăâeêioôơuưy";
        const std::wstring_view onsets[] = {L"",   L"b",  L"c", L"ch", L"d",  L"đ",  L"g",
                                            L"h",  L"kh", L"l", L"m",  L"n",  L"ng", L"nh",
                                            L"ph", L"qu", L"t", L"th", L"tr", L"v",  L"x"};
        const std::wstring_view ends[] = {L"", L"n", L"ng", L"c", L"t", L"i", L"o", L"u", L"a"};
        for (const auto onset : onsets)
            for (const wchar_t vowel : vowels)
                for (const auto end : ends)
                    for (const wchar_t* tone :
                         {L"", L"\u0300", L"\u0309", L"\u0303", L"\u0301", L"\u0323"}) {
                        std::wstring word(onset);
                        word = ToNfc(word.append(1, vowel).append(tone).append(end));
                        if (IsSyllable(word))
                            found.push_back(word);
                    }
        return found;
    }();
    EXPECT_LT(2000u, syllables.size());
    std::wstring text;
    for (int i = 0; i < count; ++i) {
        std::wstring word = syllables[random() % syllables.size()];
        if (random() % 4 == 0)
            word = ToUpper(word);
        text += (i > 0 ? random() % 9 == 0 ? L"-" : L" " : L"") + word;
    }
    return text;
}

std::unique_ptr<icu::Collator> Vietnamese() {
    UErrorCode error = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale("vi"), error));
    EXPECT_TRUE(U_SUCCESS(error));
    collator->setStrength(icu::Collator::SECONDARY); // letter case does not count
    return collator;
}

int IcuOrder(const icu::Collator& collator, const std::wstring& left, const std::wstring& right) {
    UErrorCode error = U_ZERO_ERROR;
    return collator.compare(ToIcu(left), ToIcu(right), error);
}

TEST(IcuCollationTest, RandomWordsSortAlike) {
    const auto collator = Vietnamese();
    std::mt19937 random(3);
    int equal = 0;
    for (int round = 0; round < 10000; ++round) {
        const int count = 1 + static_cast<int>(random() % 3);
        // The place of the tone is a difference to ICU, and none here.
        const std::wstring left = MoveTones(Words(random, count), TonePlace::New);
        std::wstring right = MoveTones(Words(random, count), TonePlace::New);
        if (const auto kind = random() % 8; kind == 0)
            right = ToUpper(left);
        else if (kind < 4) // begins alike
            right = left + L" " + right;
        const int order = Compare(left, right);
        equal += order == 0;
        ASSERT_EQ(IcuOrder(*collator, left, right), order)
            << testing::PrintToString(left) << " " << testing::PrintToString(right);
    }
    EXPECT_LT(0, equal);
}

TEST(IcuCollationTest, SignsAndDigitsStandAsInIcu) {
    const auto collator = Vietnamese();
    for (wchar_t left = L' '; left < 0x7F; ++left)
        for (wchar_t right = L' '; right < 0x7F; ++right)
            EXPECT_EQ(IcuOrder(*collator, {left}, {right}), Compare({&left, 1}, {&right, 1}))
                << static_cast<char>(left) << static_cast<char>(right);
}

TEST(IcuCollationTest, DifferencesAreMeant) {
    const auto collator = Vietnamese();
    // The two places of the tone are one here.
    EXPECT_NE(0, IcuOrder(*collator, L"hoà", L"hòa"));
    EXPECT_EQ(0, Compare(L"hoà", L"hòa"));
    // Runs of blanks, too.
    EXPECT_NE(0, IcuOrder(*collator, L"Hà  Nội", L"Hà Nội"));
    EXPECT_EQ(0, Compare(L"Hà  Nội", L"Hà Nội"));
    // ð is typed for đ.
    EXPECT_NE(0, IcuOrder(*collator, L"ð", L"đ"));
    EXPECT_EQ(0, Compare(L"ð", L"đ"));
    // Letters of other alphabets stand by their codes, æ behind z.
    EXPECT_GT(0, IcuOrder(*collator, L"æ", L"z"));
    EXPECT_LT(0, Compare(L"æ", L"z"));
}

} // namespace
