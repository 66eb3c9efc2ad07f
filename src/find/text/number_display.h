// SPDX-License-Identifier: MIT
// Numbers as Vietnamese users read them ("." between thousands, "," before decimals) and back, and
// the two small text helpers that go with them.
#pragma once

#include <string>
#include <string_view>

namespace vndesk {

// "-" or "+" when the text starts with it, else empty.
std::wstring Sign(std::wstring_view text);

// The one character at a position counted from 1, or empty outside the text.
std::wstring Mid1(std::wstring_view text, long position);

std::wstring CvNStr(std::wstring_view numberText);

double CvTextToN(std::wstring_view text);

} // namespace vndesk
