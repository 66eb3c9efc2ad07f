// SPDX-License-Identifier: MIT
// Column values and other VARIANTs converted to what the forms work with.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>
#include <string>

#include "data/text/statement.h"

namespace vndesk {

// These never fail: what cannot be converted is empty or 0. Null is the empty text; numbers are
// written with a decimal point in every locale.
std::wstring NullToText(const VARIANT& value);
long NullToInteger(const VARIANT& value);
double NullToDouble(const VARIANT& value);

// A time as the provider gives it: a date, or a text such as 2026-11-22 10:35:00. Nothing for Null
// and for what is no time.
std::optional<Moment> NullToMoment(const VARIANT& value);

// Throws a type mismatch for anything but a 32-bit number, null included.
long ToInteger(const VARIANT& value);

} // namespace vndesk
