// SPDX-License-Identifier: MIT
// Why a database could not be opened, as far as the errors of its provider tell, and how users are
// told.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vndesk {

// One of the errors that a provider has left.
struct ProviderError {
    std::int32_t number = 0; // an HRESULT
    std::int32_t native = 0; // of the driver
    std::wstring state = {}; // SQLSTATE
    std::wstring text = {};
};

enum class FailureReason {
    Unknown,
    CertificateNotTrusted,
    DriverMissing,
    JetIn64Bits,
    NameOrPassword,
    DatabaseNotFound,
    FileNotFound,
    ServerNotReady,
    ServerNotFound,
    Count
};

struct ConnectionFailure {
    FailureReason reason = FailureReason::Unknown;
    int bits = 0;                   // of the program
    std::wstring providerText = {}; // without secrets; lines end with \r\n
};

// `bits` are those of the program, for which drivers must have been made.
ConnectionFailure FailureOf(std::wstring_view connectionString,
                            const std::vector<ProviderError>& errors, int bits);

// The reason in a sentence, in TCVN3; empty where it is unknown.
std::wstring ReasonSentence(const ConnectionFailure& failure);

} // namespace vndesk
