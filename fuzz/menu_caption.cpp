// SPDX-License-Identifier: MIT
// A letter, then captions, one a line. The parts of a caption are parts of it, and a letter leads
// to an item that has it.
#include "support/input.h"

#include <algorithm>
#include <vector>

#include "menus/item/menu_caption.h"
#include "menus/item/menu_char.h"
#include "text/ascii_text.h"

namespace vndesk::fuzz {

namespace {

void CheckCaption(const std::wstring& caption) {
    const MenuCaption parsed = ParseCaption(caption);
    MUST(caption.find(parsed.text) != std::wstring::npos);
    MUST(caption.find(parsed.help) != std::wstring::npos);
    MUST(parsed.image >= kNoImage && parsed.image < 32767);
    MUST(!parsed.separator || caption.front() == L'-');
    const std::wstring_view text = TextPart(parsed.text);
    const std::wstring_view shortcut = ShortcutPart(parsed.text);
    MUST(text.find(L'\t') == std::wstring_view::npos);
    MUST(parsed.text == text || parsed.text == std::wstring(text) + L"\t" + std::wstring(shortcut));
    const std::wstring plain = WithoutMnemonics(text);
    MUST(plain.size() <= text.size());
    const wchar_t mnemonic = Mnemonic(text);
    MUST(mnemonic != L'&' && (mnemonic == 0 || plain.find(mnemonic) != std::wstring::npos));
}

} // namespace

void RunOne(Input& input) {
    const std::wstring letters = input.Text();
    const wchar_t letter = letters.empty() ? L'a' : letters.front();
    const long highlighted = input.Number(0, 9);
    std::vector<LetterItem> items;
    for (std::wstring text = input.Text(); !text.empty() && items.size() < 20;
         text = input.Text()) {
        CheckCaption(text);
        items.push_back(
            {text, text.back() != L'!', static_cast<long>(items.size()) == highlighted});
    }
    const LetterMatch match = MatchLetter(items, letter, ToUpperAscii);
    MUST(match.position >= -1 && match.position < static_cast<int>(items.size()));
    MUST(!match.execute || match.position >= 0);
    if (match.position < 0)
        return;
    const LetterItem& item = items[static_cast<std::size_t>(match.position)];
    const wchar_t mnemonic = Mnemonic(item.text);
    MUST(ToUpperAscii(mnemonic ? mnemonic : item.text.front()) == ToUpperAscii(letter));
    MUST(!match.execute || item.enabled);
}

} // namespace vndesk::fuzz
