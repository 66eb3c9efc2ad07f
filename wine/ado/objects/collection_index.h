// SPDX-License-Identifier: MIT
// How hosts name an item of a collection.
#pragma once

#include <cstddef>

#include "ado/engine/ado_error.h"
#include "ado/objects/ado_object.h"

namespace vndesk::ado {

inline bool SameName(std::wstring_view left, std::wstring_view right) {
    return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

// The first item with the name that `index` holds, in any case, or the one with that number.
// Throws ADO's error 3265.
template <class NameAt>
std::size_t FindItem(const VARIANT& index, std::size_t count, NameAt&& nameAt) {
    const Argument argument(index);
    if (argument.IsText()) {
        const std::wstring name = argument.Text();
        for (std::size_t i = 0; i < count; ++i)
            if (SameName(nameAt(i), name))
                return i;
        ThrowMisuse(AdoMisuse::ItemNotFound);
    }
    const long number = argument.Number();
    if (number < 0 || static_cast<std::size_t>(number) >= count)
        ThrowMisuse(AdoMisuse::ItemNotFound);
    return static_cast<std::size_t>(number);
}

} // namespace vndesk::ado
