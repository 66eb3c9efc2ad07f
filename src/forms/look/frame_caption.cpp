// SPDX-License-Identifier: MIT
// A group box clips its caption at the measured width, and hinted letters reach beyond it. While it
// paints, the caption ends in a blank.
#include "forms/look/frame_caption.h"

#include "forms/look/common_controls.h"

namespace vndesk {

namespace {

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                UINT_PTR id, DWORD_PTR painting) {
    const CommonControls& controls = Controls6();
    if (message == WM_PAINT || message == WM_PRINTCLIENT) {
        controls.SetWindowSubclass(window, FrameProcedure, id, TRUE);
        const LRESULT result = controls.DefSubclassProc(window, message, wParam, lParam);
        controls.SetWindowSubclass(window, FrameProcedure, id, FALSE);
        return result;
    }
    if (message == WM_NCDESTROY)
        controls.RemoveWindowSubclass(window, FrameProcedure, id);
    const LRESULT result = controls.DefSubclassProc(window, message, wParam, lParam);
    if (!painting || result <= 0)
        return result;
    const auto length = static_cast<size_t>(result);
    if (message == WM_GETTEXTLENGTH)
        return result + 1;
    if (message == WM_GETTEXT && length + 1 < wParam) {
        auto* text = reinterpret_cast<wchar_t*>(lParam);
        text[length] = L' ';
        text[length + 1] = L'\0';
        return result + 1;
    }
    return result;
}

} // namespace

void KeepLastLetter(HWND frame) {
    Controls6().SetWindowSubclass(frame, FrameProcedure, 0, FALSE);
}

} // namespace vndesk
