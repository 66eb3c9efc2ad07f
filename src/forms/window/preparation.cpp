// SPDX-License-Identifier: MIT
#include "forms/window/preparation.h"

#include "comkit/base/com_error.h"
#include "comkit/base/upper_case.h"
#include "forms/window/form.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr double kLargestSmallSize = 8;
constexpr double kReadableSize = 9;

bool Contains(const std::wstring& text, const wchar_t* part) {
    return text.find(part) != std::wstring::npos;
}

void ConvertControl(Control& control) {
    const std::wstring type = UpperCase(control.TypeName());
    const std::wstring name = UpperCase(control.Name());
    for (const wchar_t* captioned :
         {L"LABELW", L"COMMANDBUTTONW", L"CHECKBOXW", L"OPTIONBUTTONW"}) {
        if (!Contains(type, captioned))
            continue;
        const std::wstring design = control.Caption();
        std::wstring caption = ToUncText(design, kToUnicode);
        const std::wstring& font = control.FontOf().name;
        if (font.ends_with(L'H') || (Contains(name, L"TITLE") && type == L"LABELW"))
            caption = UpperCase(caption);
        if (caption != design)
            control.SetCaption(caption);
    }
    if (type == L"TEXTBOXW" || type == L"COMBOBOXW")
        control.SetLeftMargin(0);
}

void SetHouseFont(Control& control) {
    FontSpec font = control.FontOf();
    font.name = kHouseFont;
    if (font.points <= kLargestSmallSize)
        font.points = kReadableSize;
    control.SetFont(font);
}

} // namespace

void PrepareForm(Form& form) {
    form.Centre();
    if (DefaultFontName().empty())
        SetDefaultFontName(kHouseFont);
    // The house font is applied whatever default the host has set; that default is only remembered.
    for (const auto& control : form.Controls())
        Trap([&] { SetHouseFont(*control); });
    if (!form.TitleOnly())
        ConvertFormControls(form);
    ConvertFormCaption(form);
}

void ConvertFormControls(Form& form) {
    for (const auto& control : form.Controls())
        Trap([&] { ConvertControl(*control); });
}

void ConvertFormCaption(Form& form) {
    Trap([&] { SetWindowTextUnicode(form.Window(), ToUncText(form.Caption(), kToUnicode)); });
}

void SetWindowTextUnicode(HWND window, const std::wstring& text) {
    // DefWindowProcW, not SetWindowText: the window procedure of an ANSI host would lose letters.
    DefWindowProcW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

} // namespace vndesk
