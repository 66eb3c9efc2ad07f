// SPDX-License-Identifier: MIT
// A second way into a test's database, past everything under test: plain ODBC.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>
#include <sqltypes.h>

namespace vndesk::test {

class OdbcSession {
public:
    // Throws std::runtime_error with the driver's text, as all members do.
    explicit OdbcSession(const std::wstring& connectionString);
    ~OdbcSession();
    OdbcSession(const OdbcSession&) = delete;
    OdbcSession& operator=(const OdbcSession&) = delete;

    // Runs one statement in the engine's own dialect; returns the number of rows touched, 0 for
    // DDL.
    long Execute(std::wstring_view statement);
    // Runs all statements of a script: "--" comments, '..' literals and "..", [..] names are known.
    void ExecuteScript(std::wstring_view script);

    using Row = std::vector<std::optional<std::wstring>>;
    std::vector<Row> Query(std::wstring_view statement);
    // First column of the first row; empty text for null or no row.
    std::wstring ScalarText(std::wstring_view statement);
    // Bind the first columns or parameters of a new statement, and give it back.
    void BindColumns(int count);
    void BindParameters(int count);

private:
    template <class Bind> void BindEach(int count, Bind&& bind);

    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
    const bool inBytes_;
};

// The path as the ODBC drivers of the machine around Wine know it; unchanged on Windows.
std::wstring DriverPath(const std::wstring& windowsPath);

} // namespace vndesk::test
