// SPDX-License-Identifier: MIT
// Values written into statement text: quoting, escaping, and the prefix that SQL Server needs for
// national characters.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace vndesk {

enum class DatabaseKind { Jet = 0, SqlServer = 1 };

// Codes of a field's type in the catalogue of a host's database. It may have others, too.
enum FieldType : long {
    kFieldFlag = 1,
    kFieldNumber = 3,
    kFieldDate = 8,
    kFieldText = 10,
    kFieldMemo = 11,
    kFieldAmount = 13
};

// "N" for SQL Server, else empty.
std::wstring_view UnicodePrefix(DatabaseKind dbKind);

// Prefix and apostrophes around the text as it stands: inner apostrophes are not doubled.
std::wstring SqlQuote(std::wstring_view text, DatabaseKind dbKind);

// Whether a text ends the literal that it stands in as it is.
bool EndsLiteral(std::wstring_view text);

// Whether an engine could take a statement that holds these texts between apostrophes as they are
// for another one than was meant, with conditions or statements of the texts' own. False when one
// of them leaves a literal open to the end of the statement: every engine refuses that as a whole.
// `doubled` stands in the same statement with its apostrophes doubled.
bool MayMeanMore(std::initializer_list<std::wstring_view> asTyped, std::wstring_view doubled = {});

// The text without pairs of apostrophes: inside a literal a pair is one apostrophe to every engine,
// and ends nothing. A text with a backslash is left alone, because some engines pass over the
// apostrophe behind it.
std::wstring WithoutPairs(std::wstring_view text);

// Doubles every apostrophe and every double quote.
std::wstring DoubleQuotes(std::wstring_view text);

// Literal of kind "N" number, "D" date, "S" or "" text, "LR" pattern with % at the right, "LL" and
// "LA" pattern with % at both ends; the kind's letter case is ignored. Unknown kinds give "".
std::wstring Literal(std::wstring_view value, std::wstring_view literalKind, DatabaseKind dbKind);

// Literal by field type: a number, a date, a text. Other codes and unsuitable values give "1".
std::wstring FieldValue(std::wstring_view value, long code, DatabaseKind dbKind);

} // namespace vndesk
