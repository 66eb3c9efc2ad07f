// SPDX-License-Identifier: MIT
// A text in Unicode, then bytes. What is not lost comes back, and what is lost is told.
#include "support/input.h"

#include "text/encodings/bytes.h"
#include "text/encodings/convert.h"
#include "text/encodings/detect.h"
#include "text/letters/normal_form.h"
#include "text/tcvn3.h"

namespace vndesk::fuzz {

namespace {

constexpr Encoding kAll[] = {Encoding::Unicode,    Encoding::Tcvn3,  Encoding::Tcvn3Capitals,
                             Encoding::VniWindows, Encoding::Cp1258, Encoding::UnicodeNfd};

void CheckUnicode(const std::wstring& text) {
    const std::wstring composed = ToNfc(text);
    for (const Encoding to : kAll) {
        const Converted there = ConvertEncoding(text, Encoding::Unicode, to);
        const std::wstring back = ConvertEncoding(there.text, to, Encoding::Unicode).text;
        MUST(there.positions.size() <= there.lost.size());
        MUST(there.lost.empty() == there.positions.empty());
        std::size_t last = 0;
        for (const std::size_t position : there.positions) {
            MUST(position < text.size() && position >= last);
            last = position;
        }
        MUST(!there.lost.empty() || back == composed);
        MUST(there.lost.empty() || back != composed || to == Encoding::Tcvn3 ||
             to == Encoding::Tcvn3Capitals);
        MUST(to != Encoding::Tcvn3 || composed.size() > kMaxConvertLength ||
             there.text == ToUncText(composed, kToTcvn3));
    }
}

void CheckBytes(std::string_view given) {
    const ByteText bytes(given.begin(), given.end());
    for (const Encoding from : kAll) {
        const auto text = TextOfBytes(bytes, from);
        if (!text)
            continue;
        for (const Encoding to : kAll) {
            const Converted converted = ConvertEncoding(*text, from, to);
            for (const std::size_t position : converted.positions)
                MUST(position < text->size());
            const ByteText there = BytesOfText(converted.text, to);
            MUST(!IsOfBytes(to) || there.size() == converted.text.size());
        }
        IsUnicodeAlready(*text, from);
    }
    const Detection found = DetectBytes(std::wstring(bytes.begin(), bytes.end()));
    MUST(found.confidence >= 0 && found.confidence <= 100);
    MUST(found.encoding.has_value() == (found.confidence >= kLeastConfidence));
}

} // namespace

void RunOne(Input& input) {
    const std::wstring text = input.Text();
    CheckUnicode(text);
    const Detection found = Detect(text);
    MUST(found.encoding.has_value() == (found.confidence >= kLeastConfidence));
    CheckBytes(input.Bytes());
}

} // namespace vndesk::fuzz
