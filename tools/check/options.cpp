// SPDX-License-Identifier: MIT
#include "check/options.h"

namespace vndesk::check {

Options ParseOptions(const std::vector<std::wstring_view>& words) {
    Options options;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::wstring_view word = words[i];
        if (word == L"--json")
            options.json = true;
        else if (const auto language = console::LanguageOption(word))
            options.language = language;
        else if (word == L"--connect" && i + 1 < words.size())
            options.connectionString = words[++i];
        else if (word == L"--help")
            options.action = Action::Help;
        else if (word == L"--version")
            options.action = Action::Version;
        else if (options.wrong.empty())
            options.wrong = options.connectionString && word.substr(0, 2) != L"--"
                                ? L"--connect \"...\""
                                : console::ShownWord(word);
    }
    return options;
}

} // namespace vndesk::check
