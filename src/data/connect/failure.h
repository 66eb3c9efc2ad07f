// SPDX-License-Identifier: MIT
// What is told of a database that cannot be opened, and of what its provider says.
#pragma once

#include <string>
#include <string_view>

#include "comkit/base/com_error.h"
#include "data/connect/database.h"
#include "data/text/connection_failure.h"

namespace vndesk {

// 0x80040214, as the reference tells hosts.
inline constexpr HRESULT kNotConnected = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x214);

// What a user is told, in Unicode and without secrets: that there is no connection, and why.
std::wstring FailureText(const ConnectionFailure& failure);
// The same with what the provider says.
std::wstring WholeFailureText(const ConnectionFailure& failure);
[[noreturn]] void ThrowFailure(const ConnectionFailure& failure);

// Why the connection could not be opened: the errors that it has kept, and `error`, which its Open
// has given. Null where there is not even an object.
ConnectionFailure FailureOn(_Connection* connection, std::wstring_view connectionString,
                            const ErrorState& error);

// What a provider says about a statement, as it may be shown: without secrets where the settings
// ask for it.
std::wstring ShownText(const Database& database, const std::wstring& providerText);

} // namespace vndesk
