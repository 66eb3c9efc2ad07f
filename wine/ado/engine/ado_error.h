// SPDX-License-Identifier: MIT
// ADO's own errors for misuse, with the descriptions that hosts know.
#pragma once

#include "comkit/base/com_error.h"

namespace vndesk::ado {

// Numbers of ADO's ErrorValueEnum; the HRESULT is 0x800A0000 plus the number.
enum class AdoMisuse : long {
    InvalidArgument = 3001,
    NoCurrentRecord = 3021,
    ItemNotFound = 3265,
    ObjectInCollection = 3367,
    ObjectNotSet = 3420,
    DataConversion = 3421,
    ObjectClosed = 3704,
    ObjectOpen = 3705,
    ProviderNotFound = 3706,
    CommandHasConnection = 3707,
    ParameterUndefined = 3708,
    InvalidConnection = 3709
};

[[noreturn]] void ThrowMisuse(AdoMisuse misuse);

constexpr HRESULT kBadConnectionString = static_cast<HRESULT>(0x80040E73L);
constexpr HRESULT kNoCommand = static_cast<HRESULT>(0x80040E0CL);
constexpr HRESULT kNoTransaction = static_cast<HRESULT>(0x8004D00EL);

} // namespace vndesk::ado
