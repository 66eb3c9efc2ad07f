// SPDX-License-Identifier: MIT
#include "check/options.h"

namespace vndesk::check {

Options ParseOptions(const std::vector<std::wstring_view>& words) {
    Options options;
    for (const std::wstring_view word : words) {
        if (word == L"--json")
            options.json = true;
        else if (word == L"--en")
            options.language = Language::English;
        else if (word == L"--vi")
            options.language = Language::Vietnamese;
        else if (word == L"--help")
            options.action = Action::Help;
        else if (word == L"--version")
            options.action = Action::Version;
        else if (options.wrong.empty())
            options.wrong = word.empty() ? L"\"\"" : word;
    }
    return options;
}

} // namespace vndesk::check
