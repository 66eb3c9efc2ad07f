// SPDX-License-Identifier: MIT
// What every form does when it loads: centred, in the house font, its TCVN3 captions turned into
// Unicode.
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

class Form;

void PrepareForm(Form& form);

// Captions of labels, buttons, check boxes and option buttons. Fonts whose name ends in "H" and
// labels named as titles show capitals only.
void ConvertFormControls(Form& form);
void ConvertFormCaption(Form& form);
void SetWindowTextUnicode(HWND window, const std::wstring& text);

} // namespace vndesk
