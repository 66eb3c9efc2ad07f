// SPDX-License-Identifier: MIT
#include "check/options.h"

namespace vndesk::check {

namespace {

// Where a connection string was not put into quotes, its pieces come as words: none is repeated.
std::wstring Named(std::wstring_view word) {
    const std::size_t equals = word.find(L'=');
    if (word.empty())
        return L"\"\"";
    if (equals == std::wstring_view::npos)
        return std::wstring(word);
    return std::wstring(word.substr(0, equals + 1)) + L"...";
}

} // namespace

Options ParseOptions(const std::vector<std::wstring_view>& words) {
    Options options;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::wstring_view word = words[i];
        if (word == L"--json")
            options.json = true;
        else if (word == L"--en")
            options.language = Language::English;
        else if (word == L"--vi")
            options.language = Language::Vietnamese;
        else if (word == L"--fr")
            options.language = Language::French;
        else if (word == L"--connect" && i + 1 < words.size())
            options.connectionString = words[++i];
        else if (word == L"--help")
            options.action = Action::Help;
        else if (word == L"--version")
            options.action = Action::Version;
        else if (options.wrong.empty())
            options.wrong = options.connectionString && word.substr(0, 2) != L"--"
                                ? L"--connect \"...\""
                                : Named(word);
    }
    return options;
}

} // namespace vndesk::check
