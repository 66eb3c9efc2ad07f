// SPDX-License-Identifier: MIT
// The fonts that forms, messages and menus are drawn with, and whether they have Vietnamese
// letters.
#include "check/probes.h"

#include <iterator>

#include "check/letters.h"
#include "check/machine.h"

namespace vndesk::check {

namespace {

constexpr int kLetters = static_cast<int>(std::size(kVietnameseLetters)) - 1;

// The font that is drawn when `wanted` is asked for.
struct Drawn {
    std::wstring face;
    std::wstring lacking;
};

Drawn Draw(const LOGFONTW& wanted) {
    Drawn drawn;
    const HDC screen = CreateCompatibleDC(nullptr);
    const HFONT font = CreateFontIndirectW(&wanted);
    const HGDIOBJ before = SelectObject(screen, font);
    wchar_t face[LF_FACESIZE] = L"";
    GetTextFaceW(screen, LF_FACESIZE, face);
    drawn.face = face;
    WORD glyphs[kLetters];
    if (GetGlyphIndicesW(screen, kVietnameseLetters, kLetters, glyphs,
                         GGI_MARK_NONEXISTING_GLYPHS) == GDI_ERROR)
        drawn.lacking = kVietnameseLetters;
    else
        for (int i = 0; i < kLetters; ++i)
            if (glyphs[i] == 0xFFFF)
                drawn.lacking += kVietnameseLetters[i];
    SelectObject(screen, before);
    DeleteObject(font);
    DeleteDC(screen);
    return drawn;
}

void ProbeFont(const LOGFONTW& wanted, Findings& findings) {
    const Drawn drawn = Draw(wanted);
    const std::wstring name = wanted.lfFaceName;
    if (!drawn.lacking.empty())
        findings.push_back({Id::FontNoVietnamese,
                            {name, drawn.face, std::to_wstring(drawn.lacking.size()),
                             std::to_wstring(kLetters), drawn.lacking.substr(0, 20)}});
    else
        findings.push_back({Id::FontReady, {name, drawn.face}});
    if (!Same(drawn.face, name))
        findings.push_back({Id::FontReplaced, {name, drawn.face}});
}

} // namespace

void ProbeFonts(Findings& findings) {
    LOGFONTW forms = {};
    forms.lfHeight = -12;
    forms.lfCharSet = DEFAULT_CHARSET;
    lstrcpyW(forms.lfFaceName, L"Arial");
    ProbeFont(forms, findings);
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        return;
    ProbeFont(metrics.lfMessageFont, findings);
    if (!Same(metrics.lfMenuFont.lfFaceName, metrics.lfMessageFont.lfFaceName))
        ProbeFont(metrics.lfMenuFont, findings);
}

} // namespace vndesk::check
