// SPDX-License-Identifier: MIT
#include "text/encodings/syllable.h"

#include "text/letters/letter_keys.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace vndesk {

namespace {

// Words of up to four letters as numbers: six bits for each letter, the last one lowest.
using Packed = std::uint32_t;
constexpr std::size_t kMostPacked = 4;

constexpr std::u16string_view kAlphabet = u"abcdeghiklmnopqrstuvxyăâđêôơư";

constexpr Packed NumberOf(char16_t letter) {
    return static_cast<Packed>(kAlphabet.find(letter) + 1); // 0: not in the alphabet
}

constexpr Packed Pack(std::u16string_view letters) {
    Packed packed = 0;
    for (const char16_t letter : letters)
        packed = packed << 6 | NumberOf(letter);
    return packed;
}

constexpr std::u16string_view kRhymes =
    u"a ac ach ai am an ang anh ao ap at au ay ăc ăm ăn ăng ăp ăt âc âm ân âng âp ât âu ây "
    u"e ec em en eng eo ep et ê êch êm ên ênh êp êt êu êng "
    u"i ia ich iêc iêm iên iêng iêp iêt iêu im in inh ip it iu "
    u"o oa oac oach oai oam oan oang oanh oao oap oat oay oăc oăm oăn oăng oăt oc oe oem oen oeo "
    u"oet oi om on ong ooc oong op ot ô ôc ôi ôm ôn ông ôp ôt ơ ơi ơm ơn ơp ơt "
    u"u ua uân uâng uât uây uc uê uêch uên uênh uêt ui um un ung uơ uơn uôc uôi uôm uôn uông uôt "
    u"up ut uy uya uych uyên uyêt uyn uynh uyp uyt uyu ư ưa ưc ưi ưm ưn ưng ươc ươi ươm ươn ương "
    u"ươp ươt ươu ưt ưu y yêm yên yêng yêt yêu ynh ych yt yn yp ";

constexpr std::size_t kRhymeCount = std::count(kRhymes.begin(), kRhymes.end(), u' ');

constexpr std::array<Packed, kRhymeCount> MakeRhymes() {
    std::array<Packed, kRhymeCount> rhymes{};
    std::size_t begin = 0;
    for (Packed& rhyme : rhymes) {
        const std::size_t end = kRhymes.find(u' ', begin);
        rhyme = Pack(kRhymes.substr(begin, end - begin));
        begin = end + 1;
    }
    std::sort(rhymes.begin(), rhymes.end());
    return rhymes;
}

constexpr auto kSortedRhymes = MakeRhymes();

// Which vowels may follow, where the spelling of a sound depends on them.
enum class Before { Any, Front, Back };

struct Onset {
    Packed letters;
    std::size_t length;
    Before vowels;
};

constexpr Onset Make(std::u16string_view letters, Before vowels = Before::Any) {
    return {Pack(letters), letters.size(), vowels};
}

constexpr Onset kOnsets[] = {
    Make(u""),
    Make(u"b"),
    Make(u"c", Before::Back),
    Make(u"ch"),
    Make(u"d"),
    Make(u"đ"),
    Make(u"g"),
    Make(u"gh", Before::Front),
    Make(u"gi"),
    Make(u"h"),
    Make(u"k", Before::Front),
    Make(u"kh"),
    Make(u"l"),
    Make(u"m"),
    Make(u"n"),
    Make(u"ng", Before::Back),
    Make(u"ngh", Before::Front),
    Make(u"nh"),
    Make(u"p"),
    Make(u"ph"),
    Make(u"qu"),
    Make(u"r"),
    Make(u"s"),
    Make(u"t"),
    Make(u"th"),
    Make(u"tr"),
    Make(u"v"),
    Make(u"x"),
};

struct Word {
    std::array<Packed, 7> letters{}; // nghiêng
    std::size_t length = 0;
    Tone tone = Tone::Level;
};

constexpr char16_t kShaped[][2] = {{u'a', u'â'}, {u'e', u'ê'}, {u'o', u'ô'}, {u'a', u'ă'},
                                   {u'o', u'ơ'}, {u'u', u'ư'}, {u'd', u'đ'}};

// The letter of the alphabet, without its tone; 0 for none.
constexpr Packed LetterNumber(LetterKey key) {
    const auto base = static_cast<char16_t>(key & kBaseBits);
    if ((key & kBaseBits) >= 0x80)
        return 0;
    if (ShapeOf(key) == Shape::Plain)
        return NumberOf(base);
    for (const auto& [plain, shaped] : kShaped)
        if (plain == base && ShapeOf(MakeLetterKey(shaped)) == ShapeOf(key))
            return NumberOf(shaped);
    return 0;
}

constexpr std::array<std::uint8_t, kKeyPlaces> MakeLetterNumbers() {
    std::array<std::uint8_t, kKeyPlaces> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::uint8_t>(LetterNumber(kLetterKeys[i]));
    table[0x80 + LatinPlace(0x00F0)] = table[0x80 + LatinPlace(0x00D0)] = 0; // ð
    return table;
}

constexpr auto kLetterNumbers = MakeLetterNumbers();

// False for what is no word of the alphabet with at most one tone.
bool Read(std::wstring_view text, Word& word) {
    if (text.empty() || text.size() > word.letters.size())
        return false;
    for (const wchar_t ch : text) {
        const auto unit = static_cast<char32_t>(ch);
        const std::size_t place = unit < 0x80 ? unit : 0x80 + LatinPlace(unit);
        if (place >= kKeyPlaces || kLetterNumbers[place] == 0)
            return false;
        const Tone tone = ToneOf(kLetterKeys[place]);
        if (tone != Tone::Level && word.tone != Tone::Level)
            return false;
        word.tone = tone != Tone::Level ? tone : word.tone;
        word.letters[word.length++] = kLetterNumbers[place];
    }
    return true;
}

Packed PackRange(const Word& word, std::size_t begin, std::size_t end) {
    Packed packed = 0;
    for (std::size_t i = begin; i < end; ++i)
        packed = packed << 6 | word.letters[i];
    return packed;
}

bool IsFront(Packed letter) {
    constexpr Packed kE = NumberOf(u'e'), kEe = NumberOf(u'ê'), kI = NumberOf(u'i'),
                     kY = NumberOf(u'y');
    return letter == kE || letter == kEe || letter == kI || letter == kY;
}

// Words that end in c, ch, p or t have one of two tones.
bool FitsTone(const Word& word) {
    const Packed last = word.letters[word.length - 1];
    const bool stops = last == NumberOf(u'c') || last == NumberOf(u'p') || last == NumberOf(u't') ||
                       (last == NumberOf(u'h') && word.length > 1 &&
                        word.letters[word.length - 2] == NumberOf(u'c'));
    return !stops || word.tone == Tone::Acute || word.tone == Tone::Dot;
}

} // namespace

bool IsSyllable(std::wstring_view text) {
    Word word;
    if (!Read(text, word) || !FitsTone(word))
        return false;
    for (const Onset& onset : kOnsets) {
        if (onset.length >= word.length || word.length - onset.length > kMostPacked ||
            PackRange(word, 0, onset.length) != onset.letters)
            continue;
        const bool front = IsFront(word.letters[onset.length]);
        if (onset.vowels != Before::Any && front != (onset.vowels == Before::Front))
            continue;
        if (std::binary_search(kSortedRhymes.begin(), kSortedRhymes.end(),
                               PackRange(word, onset.length, word.length)))
            return true;
    }
    return false;
}

} // namespace vndesk
