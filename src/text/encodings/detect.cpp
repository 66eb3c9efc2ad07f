// SPDX-License-Identifier: MIT
#include "text/encodings/detect.h"

#include "text/encodings/convert.h"
#include "text/encodings/syllable.h"
#include "text/encodings/vni_tables.h"
#include "text/tcvn3_units.h"
#include "text/letters/letter_case.h"
#include "text/letters/marks.h"
#include "text/letters/normal_form.h"
#include "text/unit_blocks.h"

#include <algorithm>
#include <cstdlib>

namespace vndesk {

namespace {

constexpr Encoding kTrials[] = {Encoding::Tcvn3, Encoding::VniWindows, Encoding::Cp1258};

// A word with an accent says more than one that is the same in every encoding.
constexpr int kAccentedWeight = 3;
constexpr std::size_t kLongestInitials = 5;
// So many words more of one kind than of the other need no further look.
constexpr int kClearLead = 4;

bool IsAsciiWordUnit(wchar_t ch) {
    return ch >= 0x80 || IsWordUnit(ch);
}

// Words as they stand in every encoding: ASCII signs part them, nothing else does.
template <class Visit> void ForEachWord(std::wstring_view text, Visit visit) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        while (at < text.size() && IsAsciiWordUnit(text[at]))
            ++at;
        if (at > begin && !visit(text.substr(begin, at - begin)))
            return;
        at += at == begin ? 1 : 0;
    }
}

bool IsAscii(std::wstring_view word) {
    return std::all_of(word.begin(), word.end(), [](wchar_t ch) { return ch < 0x80; });
}

// TNHH, A: neither Vietnamese nor another language.
bool IsInitials(std::wstring_view word) {
    return word.size() <= kLongestInitials && std::all_of(word.begin(), word.end(), [](wchar_t ch) {
               return ch >= L'A' && ch <= L'Z';
           });
}

bool HasDigit(std::wstring_view word) {
    return std::any_of(word.begin(), word.end(),
                       [](wchar_t ch) { return ch >= L'0' && ch <= L'9'; });
}

// Signs beyond ASCII part words only after decoding. At least one word, and all of them.
bool IsVietnamese(std::wstring_view decoded) {
    bool any = false;
    for (std::size_t at = 0; at < decoded.size();) {
        const std::size_t begin = at;
        while (at < decoded.size() && IsWordUnit(decoded[at]))
            ++at;
        if (at > begin) {
            if (!IsSyllable(decoded.substr(begin, at - begin)))
                return false;
            any = true;
        }
        at += at == begin ? 1 : 0;
    }
    return any;
}

bool IsVietnamese(std::wstring_view word, Encoding encoding) {
    return IsVietnamese(ToUnicode(word, encoding));
}

class Score {
public:
    explicit Score(Encoding encoding) : encoding_(encoding) {}
    Encoding Of() const { return encoding_; }

    void Count(std::wstring_view word) {
        const bool ascii = IsAscii(word);
        const bool valid = IsVietnamese(word, encoding_);
        if (HasDigit(word) || (ascii && !valid && IsInitials(word)))
            return;
        const int weight = ascii ? 1 : kAccentedWeight;
        all_ += weight;
        valid_ += valid ? weight : 0;
    }
    int Percent() const { return all_ == 0 ? 0 : static_cast<int>(100 * valid_ / all_); }

private:
    Encoding encoding_;
    long long all_ = 0, valid_ = 0;
};

Score Scored(std::wstring_view text, Encoding encoding) {
    Score score(encoding);
    ForEachWord(text, [&score](std::wstring_view word) {
        score.Count(word);
        return true;
    });
    return score;
}

// The best of the trials; `best` where none is better.
Detection Judge(std::wstring_view text, Score best) {
    constexpr int kAll = 100; // nothing is better
    if (!IsAscii(text))
        for (const Encoding encoding : kTrials)
            if (best.Percent() < kAll)
                if (const Score score = Scored(text, encoding); score.Percent() > best.Percent())
                    best = score;
    Detection result{best.Of(), best.Percent()};
    if (result.confidence < kLeastConfidence)
        result.encoding.reset();
    return result;
}

// Only Unicode has these: beyond what a byte holds.
bool IsLetterBeyondBytes(wchar_t ch) {
    const auto unit = static_cast<char32_t>(ch);
    if (unit >= 0x1EA0 && unit <= 0x1EF9)
        return true;
    switch (unit) {
    case 0x0102:
    case 0x0103:
    case 0x0110:
    case 0x0111:
    case 0x0128:
    case 0x0129:
    case 0x0168:
    case 0x0169:
    case 0x01A0:
    case 0x01A1:
    case 0x01AF:
    case 0x01B0:
        return true;
    default:
        return IsMark(unit);
    }
}

// Letters of Unicode that are no codes of the encoding.
bool IsForeignTo(wchar_t ch, Encoding from) {
    const auto unit = static_cast<char32_t>(ch);
    if (unit < kFirstLatin || unit >= 256 || PartsOf(unit).base == 0)
        return false;
    switch (from) {
    case Encoding::Tcvn3:
    case Encoding::Tcvn3Capitals:
        return ToUncChar(ch, kToUnicode) == ch;
    case Encoding::VniWindows:
        return !vni::kTables.taken[unit];
    default:
        return false;
    }
}

} // namespace

Detection Detect(std::wstring_view text) {
    const std::wstring composed = ToNfc(text);
    return Judge(text, Scored(composed, composed.size() < text.size() ? Encoding::UnicodeNfd
                                                                      : Encoding::Unicode));
}

Detection DetectBytes(std::wstring_view bytes) {
    return IsAscii(bytes) ? Detect(bytes) : Judge(bytes, Score(Encoding::Unicode));
}

bool IsUnicodeAlready(std::wstring_view text, Encoding from) {
    if (HasInRange<0x100, 0x8000>(text.data(), text.size()) &&
        std::any_of(text.begin(), text.end(), IsLetterBeyondBytes))
        return true;
    int before = 0, after = 0;
    ForEachWord(text, [&](std::wstring_view word) {
        if (IsAscii(word) || HasDigit(word))
            return true;
        before += IsVietnamese(word, Encoding::Unicode);
        after += IsVietnamese(word, from);
        return std::abs(before - after) < kClearLead;
    });
    // Where both readings are words, a letter that the encoding has no code for decides.
    return before > 0 &&
           (before > after ||
            (before == after && std::any_of(text.begin(), text.end(),
                                            [from](wchar_t ch) { return IsForeignTo(ch, from); })));
}

} // namespace vndesk
