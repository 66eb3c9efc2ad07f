// SPDX-License-Identifier: MIT
#include "msgbox/clipboard.h"

namespace vndesk {

void CopyToClipboard(HWND owner, const std::wstring& text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    if (!memory)
        return;
    auto* const place = static_cast<wchar_t*>(GlobalLock(memory));
    text.copy(place, text.size());
    place[text.size()] = L'\0';
    GlobalUnlock(memory);
    bool taken = false;
    if (OpenClipboard(owner)) {
        EmptyClipboard();
        // The clipboard owns the memory from here on.
        taken = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        CloseClipboard();
    }
    if (!taken)
        GlobalFree(memory);
}

} // namespace vndesk
