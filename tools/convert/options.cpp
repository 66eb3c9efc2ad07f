// SPDX-License-Identifier: MIT
#include "convert/options.h"

#include <algorithm>

#include "text/ascii_text.h"

namespace vndesk::convert {

namespace {

struct Value {
    const wchar_t* option;
    std::wstring Options::*place;
};

constexpr Value kValues[] = {
    {L"--connect", &Options::connectionString},
    {L"--table", &Options::table},
    {L"--report", &Options::report},
    {L"--in", &Options::in},
    {L"--out", &Options::out},
};

// A list with commas, or one name in which a comma is a letter.
struct Names {
    const wchar_t* option;
    std::vector<std::wstring> Options::*place;
    bool listed;
};

constexpr Names kNames[] = {
    {L"--columns", &Options::columns, true},
    {L"--column", &Options::columns, false},
    {L"--key", &Options::keys, true},
};

struct Flag {
    const wchar_t* option;
    bool Options::*place;
};

constexpr Flag kFlags[] = {{L"--dry-run", &Options::dryRun}, {L"--bom", &Options::mark}};

struct Source {
    const wchar_t* name;
    Encoding encoding;
};

constexpr Source kSources[] = {
    {L"tcvn3", Encoding::Tcvn3}, {L"vni", Encoding::VniWindows}, {L"cp1258", Encoding::Cp1258}};

template <class Row, std::size_t kCount>
const Row* Find(const Row (&rows)[kCount], std::wstring_view option) {
    const auto* row =
        std::find_if(rows, rows + kCount, [&](const Row& known) { return option == known.option; });
    return row == rows + kCount ? nullptr : row;
}

// False where a name is empty.
bool Append(std::vector<std::wstring>& names, std::wstring_view given, bool listed) {
    for (std::size_t begin = 0; begin <= given.size();) {
        const std::size_t end =
            listed ? std::min(given.find(L',', begin), given.size()) : given.size();
        const std::wstring_view name = given.substr(begin, end - begin);
        names.emplace_back(listed ? TrimBlanks(name) : name);
        if (names.back().empty())
            return false;
        begin = end + 1;
    }
    return !names.empty();
}

class Parser {
public:
    explicit Parser(const std::vector<std::wstring_view>& words) : words_(words) {}

    Options Parse() {
        for (at_ = 0; at_ < words_.size(); ++at_)
            if (!Take(words_[at_]) && options_.wrong.empty())
                options_.wrong = connectIsOpen_ && words_[at_].substr(0, 2) != L"--"
                                     ? L"--connect \"...\""
                                     : console::ShownWord(words_[at_]);
        if (options_.wrong.empty() && options_.action == Action::Table)
            Complete();
        return std::move(options_);
    }

private:
    bool Take(std::wstring_view word) {
        if (const auto language = console::LanguageOption(word)) {
            options_.language = language;
            return true;
        }
        if (word == L"--help" || word == L"--version") {
            options_.action = word == L"--help" ? Action::Help : Action::Version;
            return true;
        }
        if (const Flag* flag = Find(kFlags, word))
            return options_.*flag->place = true;
        if (at_ + 1 == words_.size())
            return false;
        const std::wstring_view next = words_[at_ + 1];
        if (const Value* value = Find(kValues, word)) {
            options_.*value->place = next;
            connectIsOpen_ = word == L"--connect";
        } else if (const Names* names = Find(kNames, word)) {
            if (!Append(options_.*names->place, next, names->listed))
                return false;
        } else if (word == L"--from") {
            const auto source =
                std::find_if(std::begin(kSources), std::end(kSources),
                             [&](const Source& known) { return next == known.name; });
            if (source == std::end(kSources))
                return false;
            options_.from = source->encoding;
            hasFrom_ = true;
        } else {
            return false;
        }
        ++at_;
        return true;
    }

    // Whether everything is there that the one or the other needs, and nothing of the other.
    void Complete() {
        const bool file = !options_.in.empty() || !options_.out.empty();
        const auto need = [this](bool there, const wchar_t* option) {
            if (!there && options_.missing.empty())
                options_.missing = option;
        };
        const auto refuse = [this](bool there, const wchar_t* option) {
            if (there && options_.wrong.empty())
                options_.wrong = option;
        };
        if (file) {
            options_.action = Action::File;
            refuse(!options_.connectionString.empty(), L"--connect");
            refuse(!options_.table.empty(), L"--table");
            refuse(!options_.columns.empty(), L"--columns");
            refuse(!options_.keys.empty(), L"--key");
            refuse(!options_.report.empty(), L"--report");
            need(!options_.in.empty(), L"--in");
            need(!options_.out.empty(), L"--out");
        } else {
            refuse(options_.mark, L"--bom");
            need(!options_.connectionString.empty(), L"--connect");
            need(!options_.table.empty(), L"--table");
            need(!options_.columns.empty(), L"--columns");
        }
        need(hasFrom_, L"--from");
    }

    const std::vector<std::wstring_view>& words_;
    std::size_t at_ = 0;
    Options options_;
    bool hasFrom_ = false;
    bool connectIsOpen_ = false; // the last option was --connect
};

} // namespace

Options ParseOptions(const std::vector<std::wstring_view>& words) {
    return Parser(words).Parse();
}

} // namespace vndesk::convert
