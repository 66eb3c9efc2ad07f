// SPDX-License-Identifier: MIT
// The statements by which the find dialog reads what may be searched.
#pragma once

#include <string>
#include <string_view>

#include "data/text/literals.h"

namespace vndesk {

// The column by which the fields of a table are ordered.
inline constexpr wchar_t kCatalogueOrder[] = L"[code]";

// Names and captions of a table's fields; the table's name is put in as it stands.
std::wstring FieldListStatement(std::wstring_view table);
// Types and look-up sources of the same fields.
std::wstring FieldInfoStatement(std::wstring_view table);
// Names and captions of the operators for a field type, in their order.
std::wstring OperatorListStatement(long fieldType);

// What the picker offers for a value typed so far. `relation` is a table's name, or a SELECT that
// ends where a pattern can follow.
std::wstring LookUpStatement(std::wstring_view relation, std::wstring_view value,
                             DatabaseKind dbKind);

} // namespace vndesk
