// SPDX-License-Identifier: MIT
#include "data/text/pattern.h"

#include "text/letters/folded_text.h"
#include "text/letters/normal_form.h"

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

// With the tones, the shapes and the stroke.
bool CarriesMarks(wchar_t ch) {
    return std::wstring_view(L"adeiouyADEIOUY").find(ch) != std::wstring_view::npos;
}

bool IsHalfCharacter(wchar_t ch) {
    return (static_cast<char32_t>(ch) & 0xFFFFF800u) == 0xD800;
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

Pattern FindingNames(std::wstring_view typed, Engine engine, bool anywhere) {
    constexpr auto kNone = std::wstring_view::npos;
    const Escaping& escaping = EscapingOf(engine);
    const bool escapes = typed.find_first_of(escaping.special) != kNone;
    Pattern pattern;
    // LIKE of PostgreSQL takes two cases of a letter for two letters.
    if (engine == Engine::PostgreSql)
        pattern.like = L"ILike";
    if (escapes)
        pattern.clause = escaping.clause;
    const auto append = [&pattern](std::wstring_view piece) { pattern.text += piece; };
    if (anywhere)
        append(L"%");
    bool blank = false;
    for (const wchar_t ch : ToNfc(typed)) {
        if (IsBlank(ch)) {
            // Runs of them are one, and there are several kinds.
            append(blank ? L"" : L"_%");
        } else if (IsHalfCharacter(ch)) {
            // One character to some engines, two to others.
            append(L"%");
        } else if (static_cast<char32_t>(ch) >= 0x80 || CarriesMarks(ch)) {
            // Not every engine knows the two cases of other letters than those of ASCII.
            append(L"_");
        } else {
            const bool marked = escapes && escaping.escaped.find(ch) != kNone;
            append(marked ? escaping.before : L"");
            pattern.text += ch;
            append(marked ? escaping.after : L"");
        }
        blank = IsBlank(ch);
    }
    append(L"%");
    return pattern;
}

void AppendLike(StatementWriter& statement, const std::optional<Pattern>& found,
                std::wstring_view typed) {
    if (!found) {
        statement << L"  Like " << Beginning{typed};
        return;
    }
    const Pattern& pattern = *found;
    statement << AsGiven{L"  "} << AsGiven{pattern.like} << AsGiven{L" "} << Bind{pattern.text}
              << AsGiven{pattern.clause};
}

} // namespace vndesk
