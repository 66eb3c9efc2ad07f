// SPDX-License-Identifier: MIT
#include "check/texts.h"

#include "check/texts_tables.h"

namespace vndesk::check {

const Words& WordsOf(Id id, Language language) {
    const auto& table = language == Language::Vietnamese ? kVietnamese : kEnglish;
    return table[static_cast<std::size_t>(id)];
}

const Frame& FrameOf(Language language) {
    return language == Language::Vietnamese ? kVietnameseFrame : kEnglishFrame;
}

std::wstring Fill(std::wstring_view text, const std::vector<std::wstring>& values) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool place = text[i] == L'{' && i + 2 < text.size() && text[i + 2] == L'}' &&
                           text[i + 1] >= L'0' && text[i + 1] <= L'9';
        if (!place) {
            result.push_back(text[i]);
            continue;
        }
        const auto index = static_cast<std::size_t>(text[i + 1] - L'0');
        if (index < values.size())
            result += values[index];
        i += 2;
    }
    return result;
}

} // namespace vndesk::check
