// SPDX-License-Identifier: MIT
#include "data/connect/failure.h"

#include <comutil.h>

#include <algorithm>
#include <vector>

#include "comkit/base/bstr.h"
#include "data/text/captions.h"
#include "data/text/secrets.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr int kBits = 8 * static_cast<int>(sizeof(void*));

// What the connection has kept of its failure, and the error itself where it has kept nothing.
std::vector<ProviderError> ErrorsOf(_Connection* connection, const ErrorState& error) {
    std::vector<ProviderError> all;
    Trap([&] {
        ComPtr<Errors> errors;
        long count = 0;
        if (!connection || FAILED(connection->get_Errors(&errors)) ||
            FAILED(errors->get_Count(&count)))
            return;
        for (long i = 0; i < count; ++i) {
            ComPtr<Error> one;
            CheckHr(errors->get_Item(_variant_t(i), &one));
            LONG number = 0, native = 0;
            _bstr_t state, text;
            CheckHr(one->get_Number(&number));
            CheckHr(one->get_NativeError(&native));
            CheckHr(one->get_SQLState(state.GetAddress()));
            CheckHr(one->get_Description(text.GetAddress()));
            all.push_back({static_cast<std::int32_t>(number), static_cast<std::int32_t>(native),
                           FromBstr(state.GetBSTR()), FromBstr(text.GetBSTR())});
        }
    });
    // Of a call that failed before it reached a provider.
    if (std::none_of(all.begin(), all.end(),
                     [&](const ProviderError& one) { return one.text == error.description; }))
        all.push_back({static_cast<std::int32_t>(error.code), 0, {}, error.description});
    return all;
}

} // namespace

std::wstring FailureText(const ConnectionFailure& failure) {
    const std::wstring sentence = ReasonSentence(failure);
    return ToUncText(texts::kNotConnected + (sentence.empty() ? L"" : L"\r\n" + sentence),
                     kToUnicode);
}

std::wstring WholeFailureText(const ConnectionFailure& failure) {
    const std::wstring text = FailureText(failure);
    return failure.providerText.empty() ? text : text + L"\r\n" + failure.providerText;
}

void ThrowFailure(const ConnectionFailure& failure) {
    throw ComError(kNotConnected, WholeFailureText(failure));
}

ConnectionFailure FailureOn(_Connection* connection, std::wstring_view connectionString,
                            const ErrorState& error) {
    return FailureOf(connectionString, ErrorsOf(connection, error), kBits);
}

std::wstring ShownText(const Database& database, const std::wstring& providerText) {
    return database.settings.HidesSecrets() ? Secrets(database.connectionString).Hide(providerText)
                                            : providerText;
}

} // namespace vndesk
