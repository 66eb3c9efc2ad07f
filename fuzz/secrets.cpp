// SPDX-License-Identifier: MIT
// A password and a place for it, then a connection string around it. However it is quoted and
// whatever stands around it, nothing that is shown holds it.
#include "support/input.h"

#include <iterator>

#include "data/text/connection_failure.h"
#include "data/text/secrets.h"
#include "text/ascii_text.h"

namespace vndesk::fuzz {

namespace {

constexpr std::wstring_view kKeys[] = {L"Pwd=", L"PASSWORD =\t", L"User ID= ",
                                       L"jet oledb:database password=", L"uid\n="};

// A word that no other text of the input has.
constexpr std::wstring_view kSecret = L"Zq7\u1EADt\u00FDx";

std::wstring Doubled(std::wstring_view text, wchar_t mark) {
    return ReplaceEach(text, mark, std::wstring(2, mark));
}

constexpr long kPlain = 3;

// As a person writes a value that has anything in it.
std::wstring Written(std::wstring_view value, long way) {
    switch (way) {
    case 0:
        return L"{" + Doubled(value, L'}') + L"}";
    case 1:
        return L"\"" + Doubled(value, L'"') + L"\"";
    case 2:
        return L"'" + Doubled(value, L'\'') + L"'";
    default:
        return std::wstring(value);
    }
}

bool Shows(std::wstring_view text) {
    return FindIgnoringCase(text, kSecret) != std::wstring_view::npos;
}

} // namespace

void RunOne(Input& input) {
    const long key = input.Number(0, static_cast<long>(std::size(kKeys)) - 1);
    const long way = input.Number(0, kPlain);
    const std::wstring before = input.Text();
    const std::wstring front = input.Text();
    std::wstring password = front + std::wstring(kSecret) + input.Text();
    // Without quotes the first semicolon ends it.
    if (way == kPlain)
        std::erase(password, L';');
    const std::wstring after = input.RestText();
    if (Shows(before) || Shows(after))
        return;
    const std::wstring string =
        L"Server=x;" + std::wstring(kKeys[key]) + Written(password, way) + L";" + after;
    const Secrets secrets(string);
    MUST(!Shows(secrets.Hide(string)));
    MUST(!Shows(secrets.Hide(after + L" " + string)));
    // What a provider repeats of it: the value as it is meant, and as it was written.
    MUST(!Shows(secrets.Hide(before + L"'" + password + L"'")));
    MUST(!Shows(secrets.Hide(before + L"[" + Written(password, way) + L"]")));
    MUST(!Shows(FailureOf(string, {{0, 0, L"08001", before + L" " + password}}, 64).providerText));

    // A text without keys and secrets stays as it is.
    if (before.find(L'=') == std::wstring::npos && before.find(L'@') == std::wstring::npos) {
        MUST(Secrets().Hide(before) == before);
    }
    // Whatever else: hiding what is hidden changes nothing.
    const std::wstring hidden = Secrets().Hide(after);
    MUST(Secrets().Hide(hidden) == hidden);
}

} // namespace vndesk::fuzz
