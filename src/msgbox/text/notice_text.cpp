// SPDX-License-Identifier: MIT
#include "msgbox/text/notice_text.h"

namespace vndesk {

namespace {

constexpr wchar_t kRule[] = L"---------------------------\r\n";

// Without the mark of the letter behind Alt.
std::wstring Unmarked(const std::wstring& caption) {
    std::wstring text;
    for (size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == L'&' && ++i == caption.size())
            break;
        text += caption[i];
    }
    return text;
}

} // namespace

std::wstring NoticeText(std::wstring_view title, const std::vector<std::wstring>& parts,
                        const std::vector<std::wstring>& captions) {
    std::wstring text = kRule;
    text.append(title).append(L"\r\n");
    for (const std::wstring& part : parts)
        if (!part.empty())
            text.append(kRule).append(WithLineBreaks(part)).append(L"\r\n");
    text += kRule;
    for (const std::wstring& caption : captions)
        text.append(Unmarked(caption)).append(L"   ");
    return text.append(L"\r\n").append(kRule);
}

std::wstring WithLineBreaks(std::wstring_view text) {
    std::wstring lines;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n')
            continue;
        if (text[i] == L'\r' || text[i] == L'\n')
            lines += L"\r\n";
        else
            lines += text[i];
    }
    return lines;
}

} // namespace vndesk
