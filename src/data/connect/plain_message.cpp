// SPDX-License-Identifier: MIT
#include "data/connect/plain_message.h"

#include <windows.h>

namespace vndesk {

void PlainMessage(const std::wstring& text, const wchar_t* title) {
    const HWND owner = GetActiveWindow();
    // Without an owner to disable, MB_TASKMODAL disables all windows of the thread.
    MessageBoxW(owner, text.c_str(), title, owner ? MB_OK : MB_OK | MB_TASKMODAL);
}

} // namespace vndesk
