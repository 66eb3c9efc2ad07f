// SPDX-License-Identifier: MIT
#include "check/texts.h"

#include "check/texts_tables.h"

namespace vndesk::check {

namespace {

struct LanguageRow {
    const wchar_t* name;
    const Words* words;
    const Frame* frame;
};

// In the order of Language.
constexpr LanguageRow kLanguages[] = {
    {L"en", kEnglish, &kEnglishFrame},
    {L"vi", kVietnamese, &kVietnameseFrame},
    {L"fr", kFrench, &kFrenchFrame},
};

const LanguageRow& RowOf(Language language) {
    return kLanguages[static_cast<std::size_t>(language)];
}

} // namespace

const wchar_t* NameOf(Language language) {
    return RowOf(language).name;
}

const Words& WordsOf(Id id, Language language) {
    return RowOf(language).words[static_cast<std::size_t>(id)];
}

const Frame& FrameOf(Language language) {
    return *RowOf(language).frame;
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
