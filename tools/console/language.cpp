// SPDX-License-Identifier: MIT
#include "console/language.h"

namespace vndesk::console {

namespace {

constexpr Language kLanguages[] = {Language::English, Language::Vietnamese, Language::French};
constexpr const wchar_t* kNames[] = {L"en", L"vi", L"fr"}; // in the order of Language

} // namespace

const wchar_t* NameOf(Language language) {
    return kNames[static_cast<std::size_t>(language)];
}

std::optional<Language> LanguageOption(std::wstring_view word) {
    for (const Language language : kLanguages)
        if (word == std::wstring(L"--") + NameOf(language))
            return language;
    return std::nullopt;
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

std::wstring ShownWord(std::wstring_view word) {
    const std::size_t equals = word.find(L'=');
    if (word.empty())
        return L"\"\"";
    if (equals == std::wstring_view::npos)
        return std::wstring(word);
    return std::wstring(word.substr(0, equals + 1)) + L"...";
}

} // namespace vndesk::console
