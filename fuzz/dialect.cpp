// SPDX-License-Identifier: MIT
// A text typed, a name of a catalogue, and a value for a field type and operator, in the language
// of each engine: read again by that engine's rules the text is the same, and neither text nor
// value can end its literal.
#include "support/input.h"
#include "support/sql_text.h"

#include "data/text/dialect.h"
#include "data/text/dialect_names.h"
#include "find/text/dialect_value.h"
#include "find/text/format_value.h"
#include "text/ascii_text.h"
#include "text/capitals.h"

namespace vndesk::fuzz {

namespace {

// A literal at the front of a text, as the engine reads it: its value, and what follows is left.
std::optional<std::wstring> TakeLiteral(std::wstring_view& text, Engine engine) {
    const bool marked = text.starts_with(L'E');
    if (text.starts_with(L'N') || marked)
        text.remove_prefix(1);
    if (!text.starts_with(L'\''))
        return std::nullopt;
    const bool escapes = engine == Engine::MySql || (engine == Engine::PostgreSql && marked);
    std::wstring value;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == L'\'' && (i + 1 == text.size() || text[i + 1] != L'\'')) {
            text.remove_prefix(i + 1);
            return value;
        }
        if (text[i] == L'\'' || (escapes && text[i] == L'\\'))
            ++i;
        if (i < text.size())
            value += text[i];
    }
    return std::nullopt;
}

void CheckText(const std::wstring& text, const Dialect& dialect) {
    const std::wstring literal = TextLiteral(text, dialect);
    std::wstring_view rest = literal;
    const auto value = TakeLiteral(rest, dialect.engine);
    MUST(value && *value == text && rest.empty());
    MUST(literal.starts_with(L'N') == (dialect.engine == Engine::SqlServer));
    const std::wstring pattern = PatternLiteral(text, dialect);
    rest = pattern;
    MUST(TakeLiteral(rest, dialect.engine).has_value() && rest.empty());
}

// A quoted name means what stood in its brackets, but for the case of its letters.
void CheckName(const std::wstring& name, const Dialect& dialect) {
    const std::wstring told = ReportedName(name, dialect);
    MUST(told.size() >= 2 && NameInside(told) == name);
    const std::wstring catalogued = CatalogueName(QuotedName(name), dialect);
    MUST(NameInside(catalogued) == FoldedName(name, dialect.names));
    // Whatever it is, an expression or half of one: what is no name stays.
    MUST(CatalogueName(name, dialect).empty() == TrimBlanks(name).empty());
    MUST(OwnText(name, dialect).empty() == name.empty());
}

// What a list or a value becomes: literals, numbers, commas and brackets, and nothing of the user's
// between them.
void CheckValue(std::wstring_view value, long type, std::wstring_view op, const Dialect& dialect) {
    const std::wstring written = WriteValue(value, type, op, dialect);
    if (FormOfType(type) == ValueForm::None) {
        MUST(written.empty());
        return;
    }
    for (std::wstring_view rest = written; !rest.empty();) {
        std::wstring_view ahead = rest;
        if (TakeLiteral(ahead, dialect.engine)) {
            rest = ahead;
            continue;
        }
        MUST(std::wstring_view(L"0123456789.+-Ee ,()#/:DATEIMSPRUFLruefals").find(rest.front()) !=
             std::wstring_view::npos);
        rest.remove_prefix(1);
    }
}

} // namespace

void RunOne(Input& input) {
    const std::wstring text = input.Text(), name = input.Text();
    const long type = input.Number(0, 14);
    const std::wstring op = InCapitals(input.Text()), value = input.RestText();
    for (const Engine engine :
         {Engine::Jet, Engine::SqlServer, Engine::PostgreSql, Engine::Sqlite, Engine::MySql}) {
        const Dialect& dialect = DialectOf(engine);
        CheckText(text, dialect);
        if (!name.empty())
            CheckName(name, dialect);
        CheckValue(value, type, op, dialect);
    }
}

} // namespace vndesk::fuzz
