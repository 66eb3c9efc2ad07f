// SPDX-License-Identifier: MIT
#include "controls/combo/data_combo_state.h"

#include <comutil.h>
#include <olectl.h>

#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "controls/combo/font_link.h"

namespace vndesk {

namespace {

constexpr wchar_t kTextDefault[] = L"Combo1";

bool IsColor(OLE_COLOR color) {
    COLORREF ignored;
    return SUCCEEDED(OleTranslateColor(color, nullptr, &ignored));
}

// --- property bags ---

// Empty where the bag has no value that converts to the type.
_variant_t ReadProperty(IPropertyBag* bag, IErrorLog* errors, const wchar_t* name, VARTYPE type) {
    _variant_t value;
    V_VT(&value) = type; // bags convert to what is asked for
    if (FAILED(bag->Read(name, &value, errors)) || !IsSound(value) ||
        FAILED(VariantChangeType(&value, &value, 0, type)))
        value.Clear();
    return value;
}

OLE_COLOR ReadColor(IPropertyBag* bag, IErrorLog* errors, const wchar_t* name, OLE_COLOR usual) {
    const _variant_t value = ReadProperty(bag, errors, name, VT_I4);
    const auto color = static_cast<OLE_COLOR>(V_I4(&value));
    return V_VT(&value) == VT_I4 && IsColor(color) ? color : usual;
}

short ReadShort(IPropertyBag* bag, IErrorLog* errors, const wchar_t* name) {
    const _variant_t value = ReadProperty(bag, errors, name, VT_I2);
    return V_VT(&value) == VT_I2 ? V_I2(&value) : 0;
}

template <class Value>
void WriteProperty(IPropertyBag* bag, const wchar_t* name, const Value& value, bool wanted) {
    if (!wanted)
        return;
    _variant_t written(value);
    CheckHr(bag->Write(name, &written));
}

// --- streams ---

constexpr DWORD kMark = 0x31434456; // "VDC1"
constexpr WORD kLongestName = 255;

struct Fixed {
    DWORD mark;
    DWORD backColor;
    DWORD foreColor;
    DWORD enabled;
    short backStyle;
    short borderStyle;
    DWORD hasFont;
};

struct FixedFont {
    CY size;
    short weight;
    short charset;
    short italic;
    short underline;
    short strikethrough;
    WORD nameLength;
};

void ReadBytes(IStream* stream, void* to, size_t size) {
    ULONG got = 0;
    CheckHr(stream->Read(to, static_cast<ULONG>(size), &got));
    if (got != size)
        throw ComError(STG_E_READFAULT);
}

void WriteBytes(IStream* stream, const void* from, size_t size) {
    ULONG written = 0;
    CheckHr(stream->Write(from, static_cast<ULONG>(size), &written));
    if (written != size)
        throw ComError(STG_E_MEDIUMFULL);
}

void WriteFont(IStream* stream, IFont* font) {
    FixedFont fixed = {};
    BOOL italic = FALSE, underline = FALSE, strikethrough = FALSE;
    _bstr_t nameText;
    CheckHr(font->get_Name(nameText.GetAddress()));
    CheckHr(font->get_Size(&fixed.size));
    CheckHr(font->get_Weight(&fixed.weight));
    CheckHr(font->get_Charset(&fixed.charset));
    CheckHr(font->get_Italic(&italic));
    CheckHr(font->get_Underline(&underline));
    CheckHr(font->get_Strikethrough(&strikethrough));
    const std::wstring name = FromBstr(nameText).substr(0, kLongestName);
    fixed.italic = italic != FALSE;
    fixed.underline = underline != FALSE;
    fixed.strikethrough = strikethrough != FALSE;
    fixed.nameLength = static_cast<WORD>(name.size());
    WriteBytes(stream, &fixed, sizeof fixed);
    WriteBytes(stream, name.data(), name.size() * sizeof(wchar_t));
}

ComPtr<IFont> ReadFont(IStream* stream) {
    FixedFont fixed;
    ReadBytes(stream, &fixed, sizeof fixed);
    if (fixed.nameLength > kLongestName)
        throw ComError(STG_E_DOCFILECORRUPT);
    std::wstring name(fixed.nameLength, L'\0');
    ReadBytes(stream, name.data(), name.size() * sizeof(wchar_t));
    FONTDESC description = {};
    description.lpstrName = name.data();
    description.cySize = fixed.size;
    description.sWeight = fixed.weight;
    description.sCharset = fixed.charset;
    description.fItalic = fixed.italic;
    description.fUnderline = fixed.underline;
    description.fStrikethrough = fixed.strikethrough;
    return MakeFont(description);
}

} // namespace

DataComboState ReadState(IPropertyBag* bag, IErrorLog* errors) {
    DataComboState state;
    state.backColor = ReadColor(bag, errors, L"BackColor", state.backColor);
    state.foreColor = ReadColor(bag, errors, L"ForeColor", state.foreColor);
    const _variant_t enabled = ReadProperty(bag, errors, L"Enabled", VT_BOOL);
    state.enabled = V_VT(&enabled) != VT_BOOL || V_BOOL(&enabled) != VARIANT_FALSE;
    const _variant_t font = ReadProperty(bag, errors, L"Font", VT_DISPATCH);
    if (V_VT(&font) == VT_DISPATCH && V_DISPATCH(&font))
        V_DISPATCH(&font)->QueryInterface(IID_PPV_ARGS(&state.font));
    state.backStyle = ReadShort(bag, errors, L"BackStyle");
    state.borderStyle = ReadShort(bag, errors, L"BorderStyle");
    return state;
}

void WriteState(IPropertyBag* bag, const DataComboState& state, IFont* font,
                const DataComboTexts& texts, bool all) {
    const DataComboState usual;
    WriteProperty(bag, L"BackColor", static_cast<long>(state.backColor),
                  all || state.backColor != usual.backColor);
    WriteProperty(bag, L"ForeColor", static_cast<long>(state.foreColor),
                  all || state.foreColor != usual.foreColor);
    WriteProperty(bag, L"Enabled", state.enabled, all || !state.enabled);
    if (all || state.font) {
        ComPtr<IDispatch> object;
        CheckHr(font->QueryInterface(IID_PPV_ARGS(&object)));
        WriteProperty(bag, L"Font", object.Get(), true);
    }
    WriteProperty(bag, L"BackStyle", state.backStyle, all || state.backStyle != usual.backStyle);
    WriteProperty(bag, L"BorderStyle", state.borderStyle,
                  all || state.borderStyle != usual.borderStyle);
    for (const auto& [name, text] :
         {std::pair{L"Text", &texts.shown}, std::pair{L"Value", &texts.hidden},
          std::pair{L"ItemData", &texts.hidden}})
        WriteProperty(bag, name, text->c_str(), all || *text != kTextDefault);
}

DataComboState ReadState(IStream* stream) {
    Fixed fixed;
    ReadBytes(stream, &fixed, sizeof fixed);
    if (fixed.mark != kMark || !IsColor(fixed.backColor) || !IsColor(fixed.foreColor))
        throw ComError(STG_E_DOCFILECORRUPT);
    DataComboState state;
    state.backColor = fixed.backColor;
    state.foreColor = fixed.foreColor;
    state.enabled = fixed.enabled != 0;
    state.backStyle = fixed.backStyle;
    state.borderStyle = fixed.borderStyle;
    if (fixed.hasFont)
        state.font = ReadFont(stream);
    return state;
}

void WriteState(IStream* stream, const DataComboState& state) {
    const Fixed fixed = {kMark,           state.backColor,   state.foreColor,      state.enabled,
                         state.backStyle, state.borderStyle, state.font != nullptr};
    WriteBytes(stream, &fixed, sizeof fixed);
    if (state.font)
        WriteFont(stream, state.font.Get());
}

} // namespace vndesk
