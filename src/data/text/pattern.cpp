// SPDX-License-Identifier: MIT
#include "data/text/pattern.h"

namespace vndesk {

namespace {

// How an engine takes a wildcard for a letter.
struct Escaping {
    std::wstring_view special; // what asks for it
    std::wstring_view escaped; // what is written with marks
    std::wstring_view before, after;
    std::wstring_view clause;
};

constexpr Escaping kInBrackets = {L"%_[", L"%_[", L"[", L"]", L""};
// PostgreSQL and MySQL escape by a backslash unless they are told another letter.
constexpr Escaping kByLetter = {L"%_\\", L"%_!", L"!", L"", L" ESCAPE '!'"};

const Escaping& EscapingOf(Engine engine) {
    return engine == Engine::Jet || engine == Engine::SqlServer ? kInBrackets : kByLetter;
}

} // namespace

Pattern BeginningWith(std::wstring_view typed, Engine engine) {
    constexpr auto kNone = std::wstring_view::npos;
    const Escaping& escaping = EscapingOf(engine);
    if (typed.find_first_of(escaping.special) == kNone)
        return {std::wstring(typed) + L"%", L""};
    std::wstring text;
    for (const wchar_t ch : typed) {
        const bool marked = escaping.escaped.find(ch) != kNone;
        text.append(marked ? escaping.before : L"").append(1, ch);
        text.append(marked ? escaping.after : L"");
    }
    return {text + L"%", escaping.clause};
}

} // namespace vndesk
