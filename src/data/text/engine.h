// SPDX-License-Identifier: MIT
// The engine behind a connection, where statements have to know more than the kind of literals.
#pragma once

#include "data/text/statement.h"

#include <string_view>

namespace vndesk {

enum class Engine { Jet, SqlServer, PostgreSql, Sqlite, MySql };

// By the name that the engine gives itself ("DBMS Name"). One that is not known counts as what its
// kind says.
Engine EngineNamed(std::wstring_view name, DatabaseKind kind);

// What 1.0 knows of it.
DatabaseKind KindOf(Engine engine);

// The name in the scripts of schema/upgrade.
std::wstring_view ScriptName(Engine engine);

// The server's time in UTC as an expression; empty where there is no server that tells it: a Jet
// file knows the local time of whoever opens it.
std::wstring_view UtcNow(Engine engine);

// One of two values by a condition, as an expression: the parts of CASE or IIf.
struct Choice {
    std::wstring_view before, then, otherwise, after;
};
Choice ChoiceOf(Engine engine);

} // namespace vndesk
