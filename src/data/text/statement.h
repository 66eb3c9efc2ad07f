// SPDX-License-Identifier: MIT
// A statement and the values of its parameters. One writer makes both forms of each statement: with
// the values as literals in the text, and with a `?` for each.
#pragma once

#include "data/text/literals.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vndesk {

// A moment as COM's DATE: days since 30 December 1899.
struct Moment {
    double days = 0;
    bool operator==(const Moment&) const = default;
};

// A day without a time, counted alike. An engine that keeps dates as texts tells the two apart.
struct Day {
    double days = 0;
    bool operator==(const Day&) const = default;
};

// What is bound to a parameter: a value of one of these types, or the Null of that type.
using BoundValue =
    std::variant<std::optional<long>, std::optional<double>, std::optional<std::wstring>,
                 std::optional<Moment>, std::optional<Day>>;

struct Statement {
    std::wstring text;
    std::vector<BoundValue> values; // one for each `?`, in order; empty when none is bound

    Statement() = default;
    // A text alone is a statement without values.
    Statement(std::wstring statement) : text(std::move(statement)) {}
    Statement(const wchar_t* statement) : text(statement) {}
    Statement(std::wstring statement, std::vector<BoundValue> bound)
        : text(std::move(statement)), values(std::move(bound)) {}

    bool operator==(const Statement&) const = default;
};

// With a text behind it.
inline Statement operator+(Statement statement, std::wstring_view text) {
    statement.text += text;
    return statement;
}

struct Dialect;

// How statements are written: values as literals for a kind of engine, or bound; everything in the
// language of an engine, where the host has named one.
struct ValueStyle {
    // A kind alone means its literals.
    constexpr ValueStyle(DatabaseKind dbKind = DatabaseKind::SqlServer, bool bindValues = false,
                         const Dialect* named = nullptr)
        : kind(dbKind), bound(bindValues), dialect(named) {}
    // Of an engine, whatever its kind.
    constexpr ValueStyle(const Dialect& named, bool bindValues = false)
        : ValueStyle(DatabaseKind::SqlServer, bindValues, &named) {}

    // Whether a text in a statement cannot become more than a text.
    constexpr bool KeepsTexts() const { return bound || dialect; }

    DatabaseKind kind;
    bool bound;
    const Dialect* dialect;
};

// Values to write. As literals they are: between apostrophes as it stands, with the Unicode prefix
// or without; with quotes doubled; so, with a blank behind it, as older rows are; a pattern for
// texts beginning so. In the language of an engine every text means itself.
struct Quoted {
    std::wstring_view text;
};
struct QuotedBare {
    std::wstring_view text;
};
struct Escaped {
    std::wstring_view text;
};
struct Trailed {
    std::wstring_view text;
};
struct Beginning {
    std::wstring_view text;
};
// A value of any type, Null included.
struct Bind {
    BoundValue value;
};
// Whole numbers separated by commas.
struct Numbers {
    std::wstring_view list;
};

// Text that is nobody's but the host's or the engine's: it is never rewritten.
struct AsGiven {
    std::wstring_view text;
};
// Names of the host's catalogue, and those in the engine's own spelling.
struct Catalogued {
    std::wstring_view name;
};
struct Reported {
    std::wstring_view name;
};
// All of a table.
struct WholeTable {
    std::wstring_view name;
};

class StatementWriter {
public:
    explicit StatementWriter(ValueStyle style) : style_(style) {}

    // The library's own text: the names in it are those of its tables.
    StatementWriter& operator<<(std::wstring_view text);
    StatementWriter& operator<<(const AsGiven& text);
    StatementWriter& operator<<(const Catalogued& given);
    StatementWriter& operator<<(const Reported& column);
    StatementWriter& operator<<(const WholeTable& table);
    StatementWriter& operator<<(const Quoted& value);
    StatementWriter& operator<<(const QuotedBare& value);
    StatementWriter& operator<<(const Escaped& value);
    StatementWriter& operator<<(const Trailed& value);
    StatementWriter& operator<<(const Beginning& value);
    StatementWriter& operator<<(const Numbers& values);
    StatementWriter& operator<<(long value);
    StatementWriter& operator<<(double value);
    // Statements of 1.0 have no such values: these are always bound.
    StatementWriter& operator<<(const Bind& value);
    StatementWriter& operator<<(const std::optional<Moment>& value);

    operator Statement() { return std::move(statement_); }

private:
    StatementWriter& Write(std::wstring literal, BoundValue value);
    StatementWriter& WriteText(std::wstring_view text, std::wstring literal);

    const ValueStyle style_;
    Statement statement_;
};

// A statement without values.
Statement OwnStatement(std::wstring_view text, ValueStyle style);

// A name in brackets, whatever it holds.
std::wstring Bracketed(std::wstring_view name);

// Whether an engine could take the statement for another one than was meant (data/text/literals.h).
// Bound values are data, whatever they hold.
bool MayMeanMore(ValueStyle style, std::initializer_list<std::wstring_view> asTyped,
                 std::wstring_view doubled = {});
bool EndsLiteral(ValueStyle style, std::wstring_view text);

} // namespace vndesk
