// SPDX-License-Identifier: MIT
// With VNDESK_ADO_AS_WRITTEN=1 in the environment, statements go to the driver as the host wrote
// them, as ADO on Windows sends them: it shows what a program says in the language of its engine.
#pragma once

namespace vndesk::ado {

bool LeavesStatements();

} // namespace vndesk::ado
