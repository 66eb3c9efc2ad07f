// SPDX-License-Identifier: MIT
#include "forms/keys/entry_box.h"

#include <commctrl.h>

#include <iterator>
#include <string>
#include <string_view>

#include "comkit/base/upper_case.h"

namespace vndesk {

namespace {

std::wstring ClassOf(HWND window) {
    wchar_t name[256];
    const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return UpperCase(std::wstring(name, static_cast<size_t>(length)));
}

// Visual Basic's, Delphi's and Windows Forms' classes have the names of Windows' own in theirs.
struct NamePart {
    std::wstring_view part;
    EntryBox kind;
};

constexpr NamePart kBoxes[] = {
    {L"GRID", EntryBox::None},         {L"COMBOLBOX", EntryBox::None}, // the list of a combo box
    {L"COMBO", EntryBox::Combo},       {L"EDIT", EntryBox::Edit},      {L"TEXTBOX", EntryBox::Edit},
    {L"DATETIMEPICK", EntryBox::Date}, {L"DTPICKER", EntryBox::Date},
};

// Frames and the like of those that do not say by a style that Tab goes into them.
constexpr std::wstring_view kContainers[] = {L"FRAME",      L"GROUPBOX",   L"PANEL",
                                             L"PICTUREBOX", L"TABCONTROL", L"TABCTL",
                                             L"TABSTRIP",   L"USERCONTROL"};

bool IsContainer(HWND window) {
    if (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT)
        return true;
    if (SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) // labels and group boxes
        return true;
    const std::wstring name = ClassOf(window);
    for (const std::wstring_view part : kContainers)
        if (name.find(part) != std::wstring::npos)
            return true;
    return false;
}

} // namespace

EntryBox KindOfBox(HWND window) {
    const std::wstring name = ClassOf(window);
    for (const auto& [part, kind] : kBoxes)
        if (name.find(part) != std::wstring::npos)
            return kind;
    // Others that are edited like an edit control, such as a box with an input mask.
    return SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL ? EntryBox::Edit
                                                                      : EntryBox::None;
}

bool HasOpenList(HWND window) {
    for (const HWND box : {window, GetParent(window)}) {
        const EntryBox kind = box ? KindOfBox(box) : EntryBox::None;
        if (kind == EntryBox::Combo && SendMessageW(box, CB_GETDROPPEDSTATE, 0, 0))
            return true;
        if (kind == EntryBox::Date) {
            const auto calendar = reinterpret_cast<HWND>(SendMessageW(box, DTM_GETMONTHCAL, 0, 0));
            if (calendar && IsWindowVisible(calendar))
                return true;
        }
    }
    return false;
}

bool IsReachedByTab(HWND form, HWND box) {
    HWND outer = GetParent(box);
    if (outer && outer != form && KindOfBox(outer) == EntryBox::Combo)
        outer = GetParent(outer);
    for (; outer != form; outer = GetParent(outer))
        if (!outer || !IsContainer(outer))
            return false;
    return true;
}

} // namespace vndesk
