// SPDX-License-Identifier: MIT
// The statements by which the find dialog reads what may be searched.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/text/pattern.h"
#include "data/text/statement.h"

namespace vndesk {

// The column by which the fields of a table are ordered.
inline constexpr wchar_t kCatalogueOrder[] = L"[code]";

// Names and captions of a table's fields; the table's name is put in as it stands.
Statement FieldListStatement(std::wstring_view table, ValueStyle style = {});
// Types and look-up sources of the same fields.
Statement FieldInfoStatement(std::wstring_view table, ValueStyle style = {});
// Names and captions of the operators for a field type, in their order.
Statement OperatorListStatement(long fieldType, ValueStyle style = {});

// What the picker offers for a value typed so far: names that begin so, or that have the pattern
// where there is one. `relation` is a table's name, or a SELECT that ends where a pattern can
// follow.
Statement LookUpStatement(std::wstring_view relation, std::wstring_view value, ValueStyle style,
                          const std::optional<Pattern>& pattern = std::nullopt);

} // namespace vndesk
