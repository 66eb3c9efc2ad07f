// SPDX-License-Identifier: MIT
#include "api/classes/cls_text.h"

#include "api/classes/number_value.h"
#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "comkit/base/variant_array.h"
#include "text/encodings/bytes.h"
#include "text/encodings/detect.h"
#include "text/letters/accents.h"
#include "text/letters/collation.h"
#include "text/letters/letter_case.h"
#include "text/letters/match.h"
#include "text/letters/normal_form.h"
#include "text/letters/tone_place.h"
#include "text/numbers/number_words.h"

namespace vndesk {

namespace {

constexpr HRESULT kUnicodeAlready = static_cast<HRESULT>(0x80040213);

// The texts of a host, without a copy.
std::wstring_view View(BSTR text) {
    return {text ? text : L"", SysStringLen(text)};
}

[[noreturn]] void ThrowInvalid(const wchar_t* description) {
    throw ComError(E_INVALIDARG, description);
}

Sensitivity ToSensitivity(AccentSensitivity sensitivity) {
    switch (sensitivity) {
    case vnAccentSensitive:
        return Sensitivity::Sensitive;
    case vnAccentSmart:
        return Sensitivity::Smart;
    case vnAccentInsensitive:
        return Sensitivity::Insensitive;
    default:
        ThrowInvalid(L"There is no such AccentSensitivity.");
    }
}

static_assert(static_cast<long>(vnUnicode) == static_cast<long>(Encoding::Unicode) &&
              static_cast<long>(vnTcvn3) == static_cast<long>(Encoding::Tcvn3) &&
              static_cast<long>(vnTcvn3Capitals) == static_cast<long>(Encoding::Tcvn3Capitals) &&
              static_cast<long>(vnVniWindows) == static_cast<long>(Encoding::VniWindows) &&
              static_cast<long>(vnCp1258) == static_cast<long>(Encoding::Cp1258) &&
              static_cast<long>(vnUnicodeNfd) == static_cast<long>(Encoding::UnicodeNfd));

Encoding ToEncoding(TextEncoding encoding) {
    if (encoding < vnUnicode || encoding > vnUnicodeNfd)
        ThrowInvalid(L"There is no such TextEncoding.");
    return static_cast<Encoding>(encoding);
}

static_assert(static_cast<unsigned>(vnWordsCapital) == kWordsCapital &&
              static_cast<unsigned>(vnWordsLinh) == kWordsLinh &&
              static_cast<unsigned>(vnWordsNgan) == kWordsNgan &&
              static_cast<unsigned>(vnWordsTi) == kWordsTi &&
              static_cast<unsigned>(vnWordsBon) == kWordsBon &&
              static_cast<unsigned>(vnWordsEmptyGroups) == kWordsEmptyGroups &&
              static_cast<unsigned>(vnWordsChan) == kWordsChan &&
              static_cast<unsigned>(vnWordsPoint) == kWordsPoint &&
              static_cast<unsigned>(vnWordsUpper) == kWordsUpper);

unsigned ToOptions(long options) {
    if (options < 0 || options > static_cast<long>(kWordsAll))
        ThrowInvalid(L"Options is a sum of NumberWords, 0 to 511.");
    return static_cast<unsigned>(options);
}

// Converted twice, letters become others without a way back.
void RefuseUnicode(std::wstring_view text, Encoding from) {
    if (IsOfBytes(from) && IsUnicodeAlready(text, from))
        throw ComError(kUnicodeAlready, L"The text is Vietnamese in Unicode already.");
}

std::wstring Normalized(std::wstring_view text, long form) {
    constexpr long kPlaces = vnOldTonePlace | vnNewTonePlace;
    if ((form & ~(vnNfd | kPlaces)) != 0 || (form & kPlaces) == kPlaces)
        ThrowInvalid(L"There is no such NormalForm.");
    std::wstring result = ToNfc(text);
    if (form & kPlaces)
        result = MoveTones(result, form & vnOldTonePlace ? TonePlace::Old : TonePlace::New);
    return form & vnNfd ? ToNfd(result) : result;
}

} // namespace

STDMETHODIMP TextObject::RemoveAccents(BSTR text, BSTR* result) {
    return Get(result, [&] { return ToBstr(vndesk::RemoveAccents(View(text))); });
}

STDMETHODIMP TextObject::Matches(BSTR text, BSTR pattern, AccentSensitivity sensitivity,
                                 long* place) {
    return Get(place, [&] {
        return static_cast<long>(
            vndesk::Matches(View(text), View(pattern), ToSensitivity(sensitivity)));
    });
}

STDMETHODIMP TextObject::Compare(BSTR a, BSTR b, long* order) {
    return Get(order, [&] { return static_cast<long>(vndesk::Compare(View(a), View(b))); });
}

STDMETHODIMP TextObject::SortKey(BSTR text, BSTR* key) {
    return Get(key, [&] { return ToBstr(vndesk::SortKey(View(text))); });
}

STDMETHODIMP TextObject::UpperCase(BSTR text, BSTR* result) {
    return Get(result, [&] { return ToBstr(ToUpper(View(text))); });
}

STDMETHODIMP TextObject::LowerCase(BSTR text, BSTR* result) {
    return Get(result, [&] { return ToBstr(ToLower(View(text))); });
}

STDMETHODIMP TextObject::TitleCase(BSTR text, BSTR* result) {
    return Get(result, [&] { return ToBstr(ToTitle(View(text))); });
}

STDMETHODIMP TextObject::Normalize(BSTR text, NormalForm form, BSTR* result) {
    return Get(result, [&] { return ToBstr(Normalized(View(text), static_cast<long>(form))); });
}

STDMETHODIMP TextObject::NumberToWords(VARIANT value, long options, BSTR* words) {
    return Get(words, [&] {
        const unsigned bits = ToOptions(options);
        const auto number = ToNumber(value);
        return ToBstr(number ? vndesk::NumberToWords(*number, bits) : std::wstring());
    });
}

STDMETHODIMP TextObject::AmountToWords(VARIANT value, BSTR currency, long options, BSTR* words) {
    return Get(words, [&] {
        const unsigned bits = ToOptions(options);
        const Currency* const unit = FindCurrency(View(currency));
        if (!unit)
            ThrowInvalid(L"There is no such currency: three letters as VND are expected.");
        const auto amount = ToNumber(value);
        return ToBstr(amount ? vndesk::AmountToWords(*amount, *unit, bits) : std::wstring());
    });
}

std::wstring TextObject::Keep(Converted&& converted) {
    lost_ = std::move(converted.lost);
    positions_ = std::move(converted.positions);
    return std::move(converted.text);
}

STDMETHODIMP TextObject::Convert(BSTR text, TextEncoding from, TextEncoding to, BSTR* result) {
    return Get(result, [&] {
        const Encoding source = ToEncoding(from), target = ToEncoding(to);
        RefuseUnicode(View(text), source);
        return ToBstr(Keep(ConvertEncoding(View(text), source, target)));
    });
}

STDMETHODIMP TextObject::ConvertBytes(VARIANT bytes, TextEncoding from, TextEncoding to,
                                      VARIANT* result) {
    return Guard([&] {
        if (!result)
            throw ComError(E_POINTER);
        VariantInit(result);
        const Encoding source = ToEncoding(from), target = ToEncoding(to);
        const auto given = ToBytes(bytes);
        if (!given)
            throw ComError(DISP_E_TYPEMISMATCH);
        if (IsOfBytes(source))
            if (const auto unicode = UnicodeOfBytes(*given))
                RefuseUnicode(*unicode, source);
        const auto text = TextOfBytes(*given, source);
        if (!text)
            ThrowInvalid(L"The bytes end within a character.");
        RefuseUnicode(*text, source);
        GiveBytes(*result, BytesOfText(Keep(ConvertEncoding(*text, source, target)), target));
    });
}

STDMETHODIMP TextObject::CanEncode(BSTR text, TextEncoding to, VARIANT_BOOL* can) {
    return Get(can, [&] {
        Keep(ConvertEncoding(View(text), Encoding::Unicode, ToEncoding(to)));
        return positions_.empty() ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP TextObject::get_LastLost(BSTR* value) {
    return Get(value, [&] { return ToBstr(lost_); });
}

STDMETHODIMP TextObject::get_LastLostPositions(VARIANT* value) {
    return Guard([&] {
        GiveArray(value, positions_,
                  [](std::size_t position) { return _variant_t(static_cast<long>(position + 1)); });
    });
}

STDMETHODIMP TextObject::Detect(VARIANT textOrBytes, TextEncoding* encoding) {
    return Get(encoding, [&] {
        confidence_ = 0;
        Detection found;
        if (const auto bytes = ToBytes(textOrBytes)) {
            const auto unicode = UnicodeOfBytes(*bytes);
            found = unicode ? vndesk::Detect(*unicode)
                            : DetectBytes(std::wstring(bytes->begin(), bytes->end()));
        } else {
            const _variant_t text = Resolved(textOrBytes);
            if (V_VT(&text) != VT_BSTR)
                throw ComError(DISP_E_TYPEMISMATCH);
            found = vndesk::Detect(View(V_BSTR(&text)));
        }
        confidence_ = found.confidence;
        return found.encoding ? static_cast<TextEncoding>(*found.encoding) : vnNotVietnamese;
    });
}

STDMETHODIMP TextObject::get_Confidence(short* value) {
    return Get(value, [&] { return static_cast<short>(confidence_); });
}

} // namespace vndesk
