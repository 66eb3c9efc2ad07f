// SPDX-License-Identifier: MIT
#include "menus/item/menu_caption.h"

#include <array>

#include "text/ascii_text.h"

namespace vndesk {

namespace {

constexpr wchar_t kBar = L'|';
constexpr int kLargestImage = 32767;

// "&1 " to "&9 ": lists of windows and files that programs and Windows itself put into a menu.
// Their texts are names, in which a bar means nothing.
bool IsNumberedEntry(std::wstring_view caption) {
    constexpr std::wstring_view kDigits = L"123456789";
    return caption.size() >= 3 && caption[0] == L'&' &&
           kDigits.find(caption[1]) != std::wstring_view::npos && caption[2] == L' ';
}

// Text, help and marks.
std::array<std::wstring_view, 3> SplitAtBars(std::wstring_view caption) {
    std::array<std::wstring_view, 3> parts;
    for (std::wstring_view& part : parts) {
        const std::size_t bar = caption.find(kBar);
        part = caption.substr(0, bar);
        caption = bar == std::wstring_view::npos ? std::wstring_view() : caption.substr(bar + 1);
    }
    return parts;
}

void ReadMarks(std::wstring_view marks, MenuCaption& caption) {
    int number = 0;
    for (const wchar_t mark : marks) {
        if (IsAsciiDigit(mark) && number <= kLargestImage)
            number = number * 10 + (mark - L'0');
        caption.check = caption.check || mark == L'+';
        caption.radio = caption.radio || mark == L'*';
    }
    if (number >= 1 && number <= kLargestImage)
        caption.image = number - 1;
}

} // namespace

MenuCaption ParseCaption(std::wstring_view caption) {
    MenuCaption result;
    if (IsNumberedEntry(caption)) {
        result.text = caption;
        return result;
    }
    result.separator = !caption.empty() && caption.front() == L'-';
    const auto [text, help, marks] = SplitAtBars(caption.substr(result.separator ? 1 : 0));
    result.text = text;
    result.help = help;
    ReadMarks(marks, result);
    return result;
}

std::wstring_view TextPart(std::wstring_view text) {
    return text.substr(0, text.find(L'\t'));
}

std::wstring_view ShortcutPart(std::wstring_view text) {
    const std::size_t tab = text.find(L'\t');
    return tab == std::wstring_view::npos ? std::wstring_view() : text.substr(tab + 1);
}

std::wstring WithoutMnemonics(std::wstring_view text) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && ++i == text.size())
            break;
        result.push_back(text[i]);
    }
    return result;
}

wchar_t Mnemonic(std::wstring_view text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == L'&') {
            if (text[i + 1] != L'&')
                return text[i + 1];
            ++i;
        }
    return 0;
}

} // namespace vndesk
