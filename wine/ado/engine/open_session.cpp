// SPDX-License-Identifier: MIT
// From a host's connection string to an open session.
#include <windows.h>

#include <stdexcept>

#include "ado/engine/ado_error.h"
#include "ado/engine/session.h"
#include "ado/engine/wine_path.h"
#include "ado/text/connection_string.h"
#include "text/ascii_text.h"

namespace vndesk::ado {

namespace {

constexpr const wchar_t* kEmbeddedDriver = L"SQLite3";
constexpr const wchar_t* kBusyMilliseconds = L"5000";

// A failure that no driver reports, but that a host finds among the connection's errors all the
// same.
[[noreturn]] void ThrowOpenError(const std::wstring& description) {
    throw DriverError({{E_FAIL, description, L"", 0}});
}

std::wstring FullPath(const std::wstring& path) {
    wchar_t full[MAX_PATH];
    const DWORD length = GetFullPathNameW(path.c_str(), MAX_PATH, full, nullptr);
    return length == 0 || length >= MAX_PATH ? path : full;
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Jet's part is played by SQLite: "Data Source" is its file, which must be there.
std::shared_ptr<Session> OpenJet(const ConnectionString& given, std::shared_ptr<ErrorLog> log) {
    const std::wstring path = FullPath(std::wstring(given.Value(L"Data Source")));
    return log->Record(L"Jet", [&] {
        if (!IsFile(path))
            ThrowOpenError(L"Could not find file '" + path + L"'.");
        ConnectionString odbc;
        odbc.Set(L"Driver", kEmbeddedDriver);
        odbc.Set(L"Database", UnixPath(path));
        odbc.Set(L"Timeout", kBusyMilliseconds);
        odbc.Set(L"NoCreat", L"1");
        auto session = std::make_shared<Session>(FormatOdbc(odbc), OdbcText::Utf8, log);
        try {
            session->ReadFileHeader();
        } catch (const DriverError& error) {
            if (error.Description().find(L"not a database") == std::wstring::npos)
                throw;
            ThrowOpenError(L"Unrecognized database format '" + path + L"'.");
        }
        return session;
    });
}

bool LooksLikeWindowsPath(std::wstring_view path) {
    return path.find(L'\\') != std::wstring_view::npos || (path.size() > 1 && path[1] == L':');
}

std::shared_ptr<Session> OpenOdbc(ConnectionString odbc, std::shared_ptr<ErrorLog> log) {
    const auto isDriverOf = [&](std::wstring_view engine) {
        return FindIgnoringCase(odbc.Value(L"Driver"), engine) != std::wstring_view::npos;
    };
    const bool sqlite = isDriverOf(L"sqlite");
    const std::wstring database(odbc.Value(L"Database"));
    if (sqlite && LooksLikeWindowsPath(database))
        odbc.Set(L"Database", UnixPath(database));
    const bool bytes = sqlite || isDriverOf(L"mariadb") || isDriverOf(L"maodbc");
    return std::make_shared<Session>(FormatOdbc(odbc), bytes ? OdbcText::Utf8 : OdbcText::Utf16,
                                     std::move(log));
}

ConnectionString Read(std::wstring_view text) {
    try {
        return ConnectionString(text);
    } catch (const std::invalid_argument&) {
        throw ComError(kBadConnectionString, L"Format of the initialization string does not "
                                             L"conform to OLE DB.");
    }
}

} // namespace

std::shared_ptr<Session> OpenSession(const OpenRequest& request, std::shared_ptr<ErrorLog> log) {
    const ConnectionString given = Read(request.connectionString);
    const std::wstring_view named = given.Value(L"Provider");
    switch (KindOfProvider(named.empty() ? std::wstring_view(request.provider) : named)) {
    case ProviderKind::Jet:
        return OpenJet(given, std::move(log));
    case ProviderKind::Odbc:
        return OpenOdbc(OdbcConnectionString(given, request.user, request.password),
                        std::move(log));
    default:
        ThrowMisuse(AdoMisuse::ProviderNotFound);
    }
}

} // namespace vndesk::ado
