// SPDX-License-Identifier: MIT
// What the test runner tells the tests through the environment.
#pragma once
#include <string>

namespace vndesk::test {

// Value of an environment variable, empty when it is not set.
std::wstring EnvironmentText(const wchar_t* name);

// Top folder of the sources (VNDESK_SOURCE_DIR, else found upwards from the program).
std::wstring SourceDir();

// Folder for what a test wants to leave behind: screenshots, logs (VNDESK_OUT, else the temporary
// folder). Created when missing.
std::wstring OutDir();

// ODBC connection string of a PostgreSQL server where databases may be created (VNDESK_PG);
// empty when there is none: such tests say GTEST_SKIP().
std::wstring PostgresConnection();
// The same of a MariaDB server (VNDESK_MARIADB).
std::wstring MariaDbConnection();
std::wstring GaleraConnection();

bool RunningUnderWine();

} // namespace vndesk::test
