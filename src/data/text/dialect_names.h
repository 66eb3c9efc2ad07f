// SPDX-License-Identifier: MIT
// Names in the language of an engine: the library's own, those of a host's catalogue, and those
// that the engine has told.
#pragma once

#include <string>
#include <string_view>

#include "data/text/dialect.h"

namespace vndesk {

// A piece of a statement of the library: every name in it between the engine's quotes, in one
// spelling, because some engines tell USER from User.
std::wstring OwnText(std::wstring_view text, const Dialect& dialect);

// A column or table as the catalogue of the host names it. What is quoted gets the engine's quotes;
// a bare name gets them where it is reserved, or holds blanks or a digit in front. An expression
// stays one.
std::wstring CatalogueName(std::wstring_view name, const Dialect& dialect);

// A name in the engine's own spelling.
std::wstring ReportedName(std::wstring_view name, const Dialect& dialect);

} // namespace vndesk
