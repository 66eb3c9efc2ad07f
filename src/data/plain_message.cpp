// SPDX-License-Identifier: MIT
#include "plain_message.h"

#include <windows.h>

namespace vndesk {

void PlainMessage(const std::wstring& text, const wchar_t* title) {
    MessageBoxW(GetActiveWindow(), text.c_str(), title, MB_OK);
}

} // namespace vndesk
