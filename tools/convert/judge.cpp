// SPDX-License-Identifier: MIT
#include "convert/judge.h"

#include <algorithm>

#include "text/encodings/convert.h"
#include "text/encodings/detect.h"

namespace vndesk::convert {

namespace {

// 80 to 9F of code page 1252; the codes that the page leaves free are themselves.
constexpr char16_t kSigns[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
constexpr std::size_t kFirstSign = 0x80;

constexpr const wchar_t* kDoubtNames[] = {L"",
                                          L"not-recognised",
                                          L"either",
                                          L"looks-like-tcvn3",
                                          L"looks-like-vni",
                                          L"looks-like-cp1258",
                                          L"no-key"};
static_assert(std::size(kDoubtNames) == static_cast<std::size_t>(Doubt::Count));

bool IsUnicode(const Detection& seen) {
    return seen.encoding && !IsOfBytes(*seen.encoding);
}

bool IsAscii(std::wstring_view text) {
    return std::all_of(text.begin(), text.end(), [](wchar_t ch) { return ch < 0x80; });
}

// Quotes and dashes stand in code page 1252 where the old encodings have nothing.
std::wstring Decoded(std::wstring_view bytes, Encoding from) {
    std::wstring text = ToUnicode(bytes, from);
    for (wchar_t& ch : text)
        if (ch >= 0x80 && ch < 0xA0)
            ch = kSigns[static_cast<std::size_t>(ch) - kFirstSign];
    return text;
}

Doubt DoubtOf(const Detection& seen) {
    if (!seen.encoding)
        return Doubt::NotRecognised;
    switch (*seen.encoding) {
    case Encoding::Tcvn3:
    case Encoding::Tcvn3Capitals:
        return Doubt::LooksLikeTcvn3;
    case Encoding::VniWindows:
        return Doubt::LooksLikeVni;
    case Encoding::Cp1258:
        return Doubt::LooksLikeCp1258;
    default:
        return Doubt::Either;
    }
}

// Whether nobody will take it for a text of bytes.
bool IsSettled(std::wstring_view converted) {
    const auto bytes = AnsiBytes(converted);
    return !bytes || IsUnicode(Detect(*bytes));
}

} // namespace

const wchar_t* NameOf(Doubt doubt) {
    return kDoubtNames[static_cast<std::size_t>(doubt)];
}

std::optional<std::wstring> AnsiBytes(std::wstring_view text) {
    std::wstring bytes(text);
    for (wchar_t& ch : bytes) {
        if (static_cast<char32_t>(ch) < 0x100)
            continue;
        const auto* sign = std::find(std::begin(kSigns), std::end(kSigns), ch);
        if (sign == std::end(kSigns))
            return std::nullopt;
        ch = static_cast<wchar_t>(kFirstSign + static_cast<std::size_t>(sign - kSigns));
    }
    return bytes;
}

Judged Judge(std::wstring_view text, Encoding from) {
    if (IsAscii(text))
        return {};
    const std::optional<std::wstring> bytes = AnsiBytes(text);
    if (!bytes)
        return IsUnicode(Detect(text)) ? Judged{Verdict::Already}
                                       : Judged{Verdict::Doubtful, Doubt::NotRecognised};
    const Detection seen = Detect(*bytes);
    Judged judged{Verdict::Doubtful, DoubtOf(seen), Decoded(*bytes, from)};
    const bool isUnicode = IsUnicode(seen);
    if (judged.converted == text && (isUnicode || !seen.encoding))
        return {isUnicode ? Verdict::Already : Verdict::Plain};
    if (!isUnicode && seen.encoding != from)
        return judged;
    const bool wasUnicode = IsUnicodeAlready(*bytes, from);
    if (isUnicode && (wasUnicode || !IsUnicode(Detect(judged.converted))))
        return {Verdict::Already};
    if (!isUnicode && !wasUnicode && IsSettled(judged.converted))
        return {Verdict::Convert, Doubt::None, std::move(judged.converted)};
    judged.doubt = Doubt::Either;
    return judged;
}

Judged JudgeFile(ByteView bytes, Encoding from) {
    if (UnicodeOfBytes(bytes))
        return {Verdict::Already};
    const std::wstring text(bytes.begin(), bytes.end());
    if (IsAscii(text))
        return {Verdict::Plain, Doubt::None, text};
    const Detection seen = DetectBytes(text);
    if (seen.encoding != from)
        return {Verdict::Doubtful, DoubtOf(seen)};
    return {Verdict::Convert, Doubt::None, Decoded(text, from)};
}

} // namespace vndesk::convert
