// SPDX-License-Identifier: MIT
// clsText: Vietnamese text, without database and window.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "comkit/object/dispatch.h"
#include "text/encodings/convert.h"
#include "vndesk_idl.h"

namespace vndesk {

class TextObject final : public ClassObject<TextObject, clsText, IText> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.clsText";

    STDMETHODIMP RemoveAccents(BSTR text, BSTR* result) override;
    STDMETHODIMP Matches(BSTR text, BSTR pattern, AccentSensitivity sensitivity,
                         long* place) override;
    STDMETHODIMP Compare(BSTR a, BSTR b, long* order) override;
    STDMETHODIMP SortKey(BSTR text, BSTR* key) override;
    STDMETHODIMP UpperCase(BSTR text, BSTR* result) override;
    STDMETHODIMP LowerCase(BSTR text, BSTR* result) override;
    STDMETHODIMP TitleCase(BSTR text, BSTR* result) override;
    STDMETHODIMP Normalize(BSTR text, NormalForm form, BSTR* result) override;
    STDMETHODIMP NumberToWords(VARIANT value, long options, BSTR* words) override;
    STDMETHODIMP AmountToWords(VARIANT value, BSTR currency, long options, BSTR* words) override;
    STDMETHODIMP Convert(BSTR text, TextEncoding from, TextEncoding to, BSTR* result) override;
    STDMETHODIMP ConvertBytes(VARIANT bytes, TextEncoding from, TextEncoding to,
                              VARIANT* result) override;
    STDMETHODIMP CanEncode(BSTR text, TextEncoding to, VARIANT_BOOL* can) override;
    STDMETHODIMP get_LastLost(BSTR* value) override;
    STDMETHODIMP get_LastLostPositions(VARIANT* value) override;
    STDMETHODIMP Detect(VARIANT textOrBytes, TextEncoding* encoding) override;
    STDMETHODIMP get_Confidence(short* value) override;

private:
    // What is converted, after what was lost of it has been kept.
    std::wstring Keep(Converted&& converted);

    std::wstring lost_;
    std::vector<std::size_t> positions_;
    int confidence_ = 0;
};

} // namespace vndesk
