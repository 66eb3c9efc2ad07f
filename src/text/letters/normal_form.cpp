// SPDX-License-Identifier: MIT
#include "text/letters/normal_form.h"

#include "text/letters/marks.h"

#include <algorithm>

namespace vndesk {

namespace {

constexpr wchar_t kKelvin = 0x212A, kAngstrom = 0x212B;

// Signs that Unicode takes for letters.
constexpr bool IsLetterSign(wchar_t ch) {
    return ch == kKelvin || ch == kAngstrom;
}

void TakeApart(wchar_t letter, Cluster& into) {
    if (letter == kKelvin)
        letter = L'K';
    if (letter == kAngstrom)
        letter = 0x00C5;
    LetterParts parts = PartsOf(static_cast<char32_t>(letter));
    while (parts.base != 0) {
        into.marks.insert(into.marks.begin(), static_cast<wchar_t>(parts.mark));
        letter = static_cast<wchar_t>(parts.base);
        parts = PartsOf(static_cast<char32_t>(letter));
    }
    into.base = letter;
    into.hasBase = true;
}

// Four marks are other ones by another number, two of them meant for Vietnamese once.
void AddMark(std::wstring& marks, wchar_t mark) {
    switch (mark) {
    case 0x0340:
        marks.push_back(kGrave);
        break;
    case 0x0341:
        marks.push_back(kAcute);
        break;
    case 0x0343:
        marks.push_back(0x0313);
        break;
    case 0x0344:
        marks.append({0x0308, kAcute});
        break;
    default:
        marks.push_back(mark);
    }
}

bool IsMarkUnit(wchar_t ch) {
    return IsMark(static_cast<char32_t>(ch));
}

// Letters before which nothing has to be looked at, whatever they are.
bool IsWhole(std::wstring_view text, std::size_t at) {
    const wchar_t ch = text[at];
    return !IsMarkUnit(ch) && !IsLetterSign(ch) &&
           (at + 1 == text.size() || !IsMarkUnit(text[at + 1]));
}

} // namespace

Cluster ReadCluster(std::wstring_view text, std::size_t at) {
    Cluster letter;
    std::size_t end = at;
    if (!IsMarkUnit(text[end]))
        TakeApart(text[end++], letter);
    const std::size_t own = letter.marks.size();
    for (; end < text.size() && IsMarkUnit(text[end]); ++end)
        AddMark(letter.marks, text[end]);
    letter.length = end - at;
    if (letter.marks.size() > own)
        std::stable_sort(letter.marks.begin(), letter.marks.end(), [](wchar_t left, wchar_t right) {
            return MarkOrder(static_cast<char32_t>(left)) < MarkOrder(static_cast<char32_t>(right));
        });
    return letter;
}

void AppendComposed(std::wstring& to, const Cluster& letter) {
    if (!letter.hasBase) {
        to.append(letter.marks);
        return;
    }
    const std::size_t base = to.size();
    to.push_back(letter.base);
    int lastOrder = 0; // of a mark that stays by itself: it keeps those of its place off the letter
    for (const wchar_t mark : letter.marks) {
        const int order = MarkOrder(static_cast<char32_t>(mark));
        const char16_t both = order == lastOrder ? char16_t{0}
                                                 : Composed(static_cast<char32_t>(to[base]),
                                                            static_cast<char32_t>(mark));
        if (both != 0) {
            to[base] = static_cast<wchar_t>(both);
        } else {
            to.push_back(mark);
            lastOrder = order;
        }
    }
}

void AppendDecomposed(std::wstring& to, const Cluster& letter) {
    if (letter.hasBase)
        to.push_back(letter.base);
    to.append(letter.marks);
}

std::wstring ToNfc(std::wstring_view text) {
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        if (IsWhole(text, at)) {
            result.push_back(text[at++]);
            continue;
        }
        const Cluster letter = ReadCluster(text, at);
        AppendComposed(result, letter);
        at += letter.length;
    }
    return result;
}

std::wstring ToNfd(std::wstring_view text) {
    std::wstring result;
    result.reserve(text.size() * 3 / 2);
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] < 0x80 && IsWhole(text, at)) {
            result.push_back(text[at++]);
            continue;
        }
        const Cluster letter = ReadCluster(text, at);
        AppendDecomposed(result, letter);
        at += letter.length;
    }
    return result;
}

bool IsSurelyNfc(std::wstring_view text) {
    return std::none_of(text.begin(), text.end(), [](wchar_t ch) {
        return IsInMarks(static_cast<char32_t>(ch)) || IsLetterSign(ch);
    });
}

} // namespace vndesk
