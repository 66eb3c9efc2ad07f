// SPDX-License-Identifier: MIT
#include "text/encodings/convert.h"

#include "text/encodings/cp1258.h"
#include "text/encodings/tcvn3_encoding.h"
#include "text/encodings/vni.h"
#include "text/letters/letter_case.h"
#include "text/letters/normal_form.h"

#include <numeric>

namespace vndesk {

namespace {

std::wstring Units(std::wstring_view text, long mode) {
    std::wstring result(text.size(), L'\0');
    ConvertUnits(result.data(), text.data(), text.size(), mode);
    return result;
}

// NFC of a text whose characters have origins already.
std::wstring Composed(std::wstring_view text, Origins* origins) {
    if (!origins)
        return ToNfc(text);
    std::wstring result;
    Origins composed;
    for (std::size_t at = 0; at < text.size();) {
        const Cluster letter = ReadCluster(text, at);
        AppendComposed(result, letter);
        composed.resize(result.size(), (*origins)[at]);
        at += letter.length;
    }
    *origins = std::move(composed);
    return result;
}

// A letter that fonts of capitals show as it is.
bool IsShownAsCapital(wchar_t ch) {
    return ToUpperLetter(ToUncChar(ToUncChar(ch, kToTcvn3), kToUnicode)) == ch &&
           static_cast<char32_t>(ToUncChar(ch, kToTcvn3)) < 256;
}

std::wstring EncodeTcvn3(std::wstring_view text, Losses& losses) {
    std::wstring result(text.size(), L'\0');
    if (!tcvn3::Encode(result.data(), text.data(), text.size()))
        for (std::size_t i = 0; i < text.size(); ++i)
            if (tcvn3::IsLost(static_cast<char32_t>(text[i])))
                losses.push_back(i);
    return result;
}

std::wstring EncodeCapitals(std::wstring_view text, Losses& losses) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (!IsShownAsCapital(text[i]))
            losses.push_back(i);
    return Units(text, kToTcvn3);
}

std::wstring FromUnicode(std::wstring&& text, Encoding to, Losses& losses) {
    switch (to) {
    case Encoding::Tcvn3:
        return EncodeTcvn3(text, losses);
    case Encoding::Tcvn3Capitals:
        return EncodeCapitals(text, losses);
    case Encoding::VniWindows:
        return EncodeVni(text, losses);
    case Encoding::Cp1258:
        return EncodeCp1258(text, losses);
    case Encoding::UnicodeNfd:
        return ToNfd(text);
    default:
        return std::move(text);
    }
}

bool IsLowSurrogate(wchar_t ch) {
    return ch >= 0xDC00 && ch <= 0xDFFF;
}

} // namespace

std::wstring ToUnicode(std::wstring_view text, Encoding from, Origins* origins) {
    std::wstring result;
    switch (from) {
    case Encoding::VniWindows:
        result = DecodeVni(text, origins);
        break;
    case Encoding::Cp1258:
        result = DecodeCp1258(text, origins);
        break;
    default:
        if (from == Encoding::Tcvn3 || from == Encoding::Tcvn3Capitals)
            result = Units(text, kToUnicode);
        else
            result = text;
        if (origins) {
            origins->resize(text.size());
            std::iota(origins->begin(), origins->end(), std::size_t{0});
        }
    }
    if (from == Encoding::Tcvn3Capitals)
        result = ToUpper(result);
    return IsSurelyNfc(result) ? result : Composed(result, origins);
}

Converted ConvertEncoding(std::wstring_view text, Encoding from, Encoding to) {
    Losses losses;
    Converted result;
    result.text = FromUnicode(ToUnicode(text, from), to, losses);
    if (losses.empty())
        return result;
    Origins origins;
    const std::wstring unicode = ToUnicode(text, from, &origins);
    for (const std::size_t at : losses) {
        result.lost.push_back(unicode[at]);
        // The two halves of a character are one.
        if (!IsLowSurrogate(unicode[at]) || at == 0 || (unicode[at - 1] & 0xFC00) != 0xD800)
            result.positions.push_back(origins[at]);
    }
    return result;
}

} // namespace vndesk
