// SPDX-License-Identifier: MIT
#include "api/classes/cls_cool_menu.h"

#include <comutil.h>

#include <utility>

#include "api/classes/window_handle.h"
#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "menus/hook/cool_menu.h"
#include "menus/state/menu_module.h"

namespace vndesk {

namespace {

bool IsGiven(const VARIANT& value) {
    return value.vt != VT_EMPTY && value.vt != VT_ERROR;
}

_variant_t ConvertTo(VARTYPE type, const VARIANT& value) {
    _variant_t result(value);
    CheckHr(VariantChangeType(&result, &result, 0, type));
    return result;
}

bool ToBool(const VARIANT& value) {
    const _variant_t converted = ConvertTo(VT_BOOL, value);
    return V_BOOL(&converted) != VARIANT_FALSE;
}

long ToLong(const VARIANT& value) {
    const _variant_t converted = ConvertTo(VT_I4, value);
    return V_I4(&converted);
}

Color ToColor(const VARIANT& value) {
    return static_cast<Color>(ToLong(value));
}

std::wstring ToText(const VARIANT& value) {
    const _variant_t converted = ConvertTo(VT_BSTR, value);
    return FromBstr(V_BSTR(&converted));
}

VARIANT_BOOL FromBool(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}

// What a host gives as HelpObj: a HelpCallBack object, or nothing.
MenuHelp ToHelp(const VARIANT& value) {
    const _variant_t given = Resolved(value);
    if (!IsGiven(given) || given.vt == VT_NULL)
        return {};
    if (given.vt != VT_DISPATCH && given.vt != VT_UNKNOWN)
        throw ComError(DISP_E_TYPEMISMATCH, L"A HelpCallBack object is needed.");
    if (!V_UNKNOWN(&given))
        return {};
    ComPtr<IHelpCallBack> help;
    if (FAILED(V_UNKNOWN(&given)->QueryInterface(IID_PPV_ARGS(&help))))
        throw ComError(DISP_E_TYPEMISMATCH, L"A HelpCallBack object is needed.");
    return [help](const std::wstring& text, const std::wstring& menuHelp, bool enabled) {
        CheckHr(help->RaiseHelpEvent(_bstr_t(ToBstr(text), false), _bstr_t(ToBstr(menuHelp), false),
                                     FromBool(enabled)));
    };
}

// One of the properties by window: sets it when a value is given, and gives what it is then.
// Unknown windows and unsuitable values are ignored.
template <class Set, class Get>
void Property(long handle, const VARIANT& value, Set&& set, Get&& get) {
    Trap([&] {
        const auto window = FindCoolMenu(ToWindow(handle));
        if (!window)
            return;
        Trap([&] {
            const _variant_t given = Resolved(value);
            if (IsGiven(given))
                set(*window, given);
        });
        get(*window);
    });
}

template <auto Member> void BoolProperty(long handle, const VARIANT& value, VARIANT_BOOL* result) {
    ClearedOut(result);
    Property(
        handle, value,
        [](WndCoolMenu& window, const VARIANT& given) { window.*Member = ToBool(given); },
        [&](const WndCoolMenu& window) { *result = FromBool(window.*Member); });
}

} // namespace

STDMETHODIMP CoolMenu::Install(long window, VARIANT help, VARIANT images, VARIANT_BOOL* done) {
    return Guard([&] {
        VARIANT_BOOL& result = ClearedOut(done);
        result =
            FromBool(!window || InstallMenus(ToWindow(window), ToHelp(help), ImageSource(images)));
    });
}

STDMETHODIMP CoolMenu::FontName(long handle, VARIANT value, BSTR* result) {
    return Guard([&] {
        std::wstring name;
        BSTR& place = ClearedOut(result);
        Property(
            handle, value,
            [](WndCoolMenu& window, const VARIANT& given) {
                window.SetFontName(ToText(given));
                RemeasureMenus(window);
            },
            [&](const WndCoolMenu& window) { name = window.FontName(); });
        place = ToBstr(name);
    });
}

STDMETHODIMP CoolMenu::FontSize(long handle, VARIANT value, long* result) {
    return Guard([&] {
        ClearedOut(result);
        Property(
            handle, value,
            [](WndCoolMenu& window, const VARIANT& given) {
                window.SetFontSize(ToLong(given));
                RemeasureMenus(window);
            },
            [&](const WndCoolMenu& window) { *result = window.FontSize(); });
    });
}

STDMETHODIMP CoolMenu::ForeColor(long handle, VARIANT value, long* result) {
    return Guard([&] {
        ClearedOut(result);
        Property(
            handle, value,
            [](WndCoolMenu& window, const VARIANT& given) {
                window.SetForeColor(ToColor(given));
                RemeasureMenus(window); // the menu bar shows it at once
            },
            [&](const WndCoolMenu& window) { *result = static_cast<long>(window.ForeColor()); });
    });
}

STDMETHODIMP CoolMenu::SelectColor(long handle, VARIANT value, long* result) {
    return Guard([&] {
        ClearedOut(result);
        Property(
            handle, value,
            [](WndCoolMenu& window, const VARIANT& given) {
                window.SetSelectColor(ToColor(given));
            },
            [&](const WndCoolMenu& window) { *result = static_cast<long>(window.SelectColor()); });
    });
}

STDMETHODIMP CoolMenu::ComplexChecks(long handle, VARIANT value, VARIANT_BOOL* result) {
    return Guard([&] { BoolProperty<&WndCoolMenu::ComplexChecks>(handle, value, result); });
}

STDMETHODIMP CoolMenu::ColorEmbossed(long handle, VARIANT value, VARIANT_BOOL* result) {
    return Guard([&] { BoolProperty<&WndCoolMenu::ColorEmbossed>(handle, value, result); });
}

STDMETHODIMP CoolMenu::RightToLeft(long handle, VARIANT value, VARIANT_BOOL* result) {
    return Guard([&] { BoolProperty<&WndCoolMenu::RightToLeft>(handle, value, result); });
}

STDMETHODIMP CoolMenu::FullSelect(long handle, VARIANT value, VARIANT_BOOL* result) {
    return Guard([&] { BoolProperty<&WndCoolMenu::FullSelect>(handle, value, result); });
}

STDMETHODIMP CoolMenu::Uninstall(long window, VARIANT_BOOL* done) {
    return Guard([&] {
        VARIANT_BOOL& result = ClearedOut(done);
        UninstallMenus(ToWindow(window));
        result = VARIANT_TRUE;
    });
}

STDMETHODIMP CoolMenu::MDIChildMenu(long child) {
    return Guard([&] { Trap([&] { WatchChildMenu(ToWindow(child)); }); });
}

} // namespace vndesk
