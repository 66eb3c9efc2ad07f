// SPDX-License-Identifier: MIT
// Statements with parameters, for drivers that look for the markers themselves and do not look
// well.
#pragma once

#include <string>
#include <string_view>

namespace vndesk::ado {

// Takes away what such a driver misreads: comments, and quotes or question marks in names that
// stand between brackets or backticks. What the statement says stays the same.
std::wstring BareMarkers(std::wstring_view statement);

} // namespace vndesk::ado
