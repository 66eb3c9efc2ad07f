// SPDX-License-Identifier: MIT
// The probes, one source file per area. Each adds what it finds; none changes anything.
#pragma once

#include "check/findings.h"
#include "check/library_classes.h"

namespace vndesk::check {

void ProbeSystem(Findings& findings);
// The file that the classes are registered from; empty where there is none.
std::wstring ProbeRegistration(const OwnTypeLibrary& own, Findings& findings);
void ProbeTypeLibrary(const OwnTypeLibrary& own, const std::wstring& library, Findings& findings);
void ProbeAdo(Findings& findings);
void ProbeOdbc(Findings& findings);
void ProbeControls(Findings& findings);
void ProbeFonts(Findings& findings);
// The host's database; what is found has no secret of the connection string in it.
void ProbeDatabase(const std::wstring& connectionString, Findings& findings);

} // namespace vndesk::check
