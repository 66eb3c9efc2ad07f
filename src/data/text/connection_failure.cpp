// SPDX-License-Identifier: MIT
#include "data/text/connection_failure.h"

#include <algorithm>
#include <iterator>

#include "data/text/captions.h"
#include "data/text/secrets.h"
#include "text/ascii_text.h"

namespace vndesk {

namespace {

// An error must have everything that a row names. The first row that any error fits counts: drivers
// give one state for many things, so words come before states.
struct Row {
    FailureReason reason;
    std::wstring_view text = {};  // a part of it, whatever its letter case
    std::wstring_view state = {}; // its beginning
    std::uint32_t number = 0;
    std::uint32_t native = 0;
};

constexpr std::uint32_t kProviderNotFound = 0x800A0E7A;
constexpr std::uint32_t kClassNotRegistered = 0x80040154;
constexpr std::uint32_t kAuthenticationFailed = 0x80040E4D;

using enum FailureReason;

constexpr Row kRows[] = {
    // What the server has against this machine is best told in its own words.
    {Unknown, L"pg_hba.conf"},
    {Unknown, L"valid client certificate"},

    {CertificateNotTrusted, L"certificate"},
    {CertificateNotTrusted, L"target principal name is incorrect"},
    {CertificateNotTrusted, {}, {}, 0, 0x80090325}, // SEC_E_UNTRUSTED_ROOT
    {CertificateNotTrusted, {}, {}, 0, 0x80090322}, // SEC_E_WRONG_PRINCIPAL
    {CertificateNotTrusted, {}, {}, 0, 0x800B0109}, // CERT_E_UNTRUSTEDROOT

    {DriverMissing, {}, {}, kProviderNotFound},
    {DriverMissing, {}, {}, kClassNotRegistered},
    {DriverMissing, {}, L"IM002"},
    {DriverMissing, {}, L"IM003"},
    {DriverMissing, {}, L"IM014"},
    {DriverMissing, L"provider is not registered"},
    {DriverMissing, L"provider cannot be found"},
    {DriverMissing, L"can't open lib"},

    // Where the login is right; SQL Server adds that it failed.
    {DatabaseNotFound, L"cannot open database"},
    {DatabaseNotFound, {}, L"42000", 0, 4060}, // SQL Server, in any language
    {DatabaseNotFound, {}, L"42000", 0, 1049}, // MySQL

    {NameOrPassword, {}, {}, kAuthenticationFailed},
    {NameOrPassword, {}, L"28"},
    {NameOrPassword, {}, L"42000", 0, 18456}, // SQL Server
    {NameOrPassword, L"authentication failed"},
    {NameOrPassword, L"no password supplied"},
    {NameOrPassword, L"login failed"},
    {NameOrPassword, L"access denied for user"},
    {NameOrPassword, L"not a valid password"},
    {NameOrPassword, L"not a valid account name"},
    {NameOrPassword, L"FATAL: role \""},
    {NameOrPassword, L"FATAL:  role \""},

    {DatabaseNotFound, {}, L"3D000"},
    {DatabaseNotFound, L"unknown database"},
    {DatabaseNotFound, L"FATAL: database \""},
    {DatabaseNotFound, L"FATAL:  database \""},

    {FileNotFound, L"could not find file"},
    {FileNotFound, L"unable to open database"},
    {FileNotFound, L"is not a valid path"},
    {FileNotFound, L"[SQLite]", {}, 0, 14}, // SQLITE_CANTOPEN

    {ServerNotReady, {}, L"57P"},
    {ServerNotReady, {}, L"53300"},
    {ServerNotReady, L"system is starting up"},
    {ServerNotReady, L"system is shutting down"},
    {ServerNotReady, L"too many connections"},
    {ServerNotReady, L"too many clients"},
    {ServerNotReady, L"connection slots are reserved"},

    {ServerNotFound, L"could not connect"},
    {ServerNotFound, L"can't connect"},
    {ServerNotFound, L"could not translate host name"},
    {ServerNotFound, L"connection refused"},
    {ServerNotFound, L"unknown mysql server host"},
    {ServerNotFound, L"unknown server host"},
    {ServerNotFound, L"server does not exist"},
    {ServerNotFound, L"server is not found"},
    {ServerNotFound, L"network-related"},
    {ServerNotFound, L"timeout expired"},
    {ServerNotFound, L"timed out"},
    {ServerNotFound, L"no route to host"},
    {ServerNotFound, L"network is unreachable"},
    {ServerNotFound, L"closed the connection unexpectedly"},
    {ServerNotFound, {}, L"HYT"},
    // psqlODBC's for everything, a wrong password too: words in another language tell nothing.
    {Unknown, {}, L"08001", 0, 101},
    {ServerNotFound, {}, L"08"},
};

bool Fits(const Row& row, const ProviderError& error) {
    return (row.text.empty() || FindIgnoringCase(error.text, row.text) != std::wstring::npos) &&
           error.state.compare(0, row.state.size(), row.state) == 0 &&
           (row.number == 0 || static_cast<std::uint32_t>(error.number) == row.number) &&
           (row.native == 0 || static_cast<std::uint32_t>(error.native) == row.native);
}

FailureReason ReasonOf(const std::vector<ProviderError>& errors) {
    const auto* row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& one) {
        return std::any_of(errors.begin(), errors.end(),
                           [&](const ProviderError& error) { return Fits(one, error); });
    });
    return row == std::end(kRows) ? Unknown : row->reason;
}

bool NamesJet(std::wstring_view connectionString) {
    constexpr std::wstring_view kNames[] = {L"Microsoft.Jet.OLEDB", L"Access Driver (*.mdb)"};
    return std::any_of(std::begin(kNames), std::end(kNames), [&](std::wstring_view name) {
        return FindIgnoringCase(connectionString, name) != std::wstring_view::npos;
    });
}

// As a text box shows it: drivers end lines as they like, and some texts with an empty one.
std::wstring WithLineEnds(std::wstring_view text) {
    while (!text.empty() && text.back() <= L' ')
        text.remove_suffix(1);
    std::wstring result;
    for (const wchar_t ch : text)
        if (ch == L'\n')
            result += L"\r\n";
        else if (ch != L'\r')
            result += ch;
    return result;
}

// Each text once, with the numbers that a manual explains.
std::wstring TextOf(const std::vector<ProviderError>& errors, const Secrets& secrets) {
    std::wstring all;
    for (const ProviderError& error : errors) {
        std::wstring line = WithLineEnds(secrets.Hide(error.text));
        if (!error.state.empty())
            line += L" (" + error.state + L", " + std::to_wstring(error.native) + L")";
        if (line.empty() || all.find(line) != std::wstring::npos)
            continue;
        all += (all.empty() ? L"" : L"\r\n") + line;
    }
    return all;
}

constexpr const wchar_t* kSentences[] = {
    L"",
    texts::kFailureCertificate,
    texts::kFailureDriver,
    texts::kFailureJet,
    texts::kFailurePassword,
    texts::kFailureDatabase,
    texts::kFailureFile,
    texts::kFailureNotReady,
    texts::kFailureServer,
};
static_assert(std::size(kSentences) == static_cast<std::size_t>(FailureReason::Count));

} // namespace

ConnectionFailure FailureOf(std::wstring_view connectionString,
                            const std::vector<ProviderError>& errors, int bits) {
    ConnectionFailure failure = {ReasonOf(errors), bits, TextOf(errors, Secrets(connectionString))};
    if (failure.reason == DriverMissing && bits == 64 && NamesJet(connectionString))
        failure.reason = JetIn64Bits;
    return failure;
}

std::wstring ReasonSentence(const ConnectionFailure& failure) {
    const std::wstring sentence = kSentences[static_cast<std::size_t>(failure.reason)];
    return failure.reason == DriverMissing
               ? sentence + std::to_wstring(failure.bits) + std::wstring(texts::kFailureBits)
               : sentence;
}

} // namespace vndesk
