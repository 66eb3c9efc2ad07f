// SPDX-License-Identifier: MIT
// Menu rights as hosts read them: one signed 32-bit mask per menu bar, bit i for the bar's i-th
// command. A bar carries 31 commands; a 32nd overflows.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/text/statement.h"

namespace vndesk {

// Whether the command at a place, counted from 0, is granted. Throws std::overflow_error beyond 31
// commands.
bool IsGranted(long mask, std::size_t place);

// The mask of the ticked places. Throws std::overflow_error when the 32nd is ticked.
long MaskOf(const std::vector<bool>& ticked);

Statement MenuCommandsStatement(short barId, ValueStyle style = {});
Statement GroupRightsStatement(long groupCode, ValueStyle style = {});
// Writes mask k into the column named columns[k].
Statement WriteRightsStatement(const std::vector<std::wstring>& columns,
                               const std::vector<long>& masks, long groupCode,
                               ValueStyle style = {});

} // namespace vndesk
