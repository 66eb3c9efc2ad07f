// SPDX-License-Identifier: MIT
#include "text/letters/collation.h"

#include "text/letters/folded_text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vndesk {

namespace {

// In this order; the characters of keys begin behind the blank, which stands before the tones.
constexpr std::u16string_view kOrder = u" _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0123456789"
                                       u"aăâbcdđeêfghijklmnoôơpqrstuưvwxyz";
constexpr wchar_t kBeforeTones = L' ';
constexpr wchar_t kControl = L'!'; // and the character itself, brought behind it
constexpr wchar_t kFirstWeight = L'"';
constexpr wchar_t kFirstTone = L'!';

static_assert(kFirstWeight + kOrder.size() < 0x7F);

// Weights of ASCII, and of the shapes of Vietnamese letters: base times shape.
struct Weights {
    std::array<wchar_t, 0x80> plain{};
    std::array<std::array<wchar_t, 0x80>, 5> shaped{};
};

constexpr Weights MakeWeights() {
    Weights weights;
    for (std::size_t i = 0; i < kOrder.size(); ++i) {
        const auto weight = static_cast<wchar_t>(kFirstWeight + i);
        if (kOrder[i] < 0x80) {
            weights.plain[kOrder[i]] = weight;
            continue;
        }
        const LetterKey key = MakeLetterKey(kOrder[i]);
        weights.shaped[static_cast<std::size_t>(ShapeOf(key))][key & kBaseBits] = weight;
    }
    return weights;
}

constexpr Weights kWeights = MakeWeights();

wchar_t ShapedWeight(LetterKey key) {
    const auto shape = static_cast<std::size_t>(ShapeOf(key));
    const LetterKey base = key & kBaseBits;
    return shape < kWeights.shaped.size() && base < 0x80 ? kWeights.shaped[shape][base] : L'\0';
}

} // namespace

void AppendSortKey(std::wstring& to, std::span<const LetterKey> letters) {
    std::wstring tones;
    for (const LetterKey letter : letters) {
        const LetterKey base = letter & kBaseBits;
        auto accent = static_cast<LetterKey>(ToneOf(letter));
        if (const wchar_t weight = ShapedWeight(letter); weight != 0) {
            to.push_back(weight);
        } else {
            if (base >= 0x80)
                to.push_back(static_cast<wchar_t>(base));
            else if (kWeights.plain[base] != 0)
                to.push_back(kWeights.plain[base]);
            else
                to.append({kControl, static_cast<wchar_t>(base + kFirstWeight)});
            accent += static_cast<LetterKey>(ShapeOf(letter)) * 6;
        }
        tones.push_back(static_cast<wchar_t>(kFirstTone + accent));
    }
    tones.erase(tones.find_last_not_of(kFirstTone) + 1);
    if (!tones.empty())
        to.append(1, kBeforeTones).append(tones);
}

std::wstring SortKey(std::wstring_view text) {
    const FoldedText letters = Fold(text);
    std::wstring key;
    key.reserve(letters.size() * 2 + 1);
    AppendSortKey(key, letters);
    return key;
}

int Compare(std::wstring_view left, std::wstring_view right) {
    const int order = SortKey(left).compare(SortKey(right));
    return (order > 0) - (order < 0);
}

} // namespace vndesk
