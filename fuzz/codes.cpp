// SPDX-License-Identifier: MIT
// A line of ticks, a box's text, then a password. Rights come back from their mask, answers have
// the known numbers, and a password's code follows from its letters alone.
#include "support/input.h"

#include <cmath>
#include <stdexcept>
#include <vector>

#include "logon/text/logon_statement.h"
#include "passwords/text/password_code.h"
#include "msgbox/text/button_sets.h"
#include "msgbox/text/return_codes.h"
#include "security/text/permissions.h"

namespace vndesk::fuzz {

namespace {

int PlainCode(wchar_t ch) {
    return ch < 0x100 ? static_cast<int>(ch) : '?';
}

void CheckRights(std::string_view ticks) {
    std::vector<bool> ticked;
    bool tooMany = false;
    for (const char ch : ticks) {
        tooMany = tooMany || (ch == '1' && ticked.size() >= 31);
        ticked.push_back(ch == '1');
    }
    try {
        const long mask = MaskOf(ticked);
        MUST(!tooMany && mask >= 0);
        for (std::size_t i = 0; i < 31; ++i)
            MUST(IsGranted(mask, i) == (i < ticked.size() && ticked[i]));
    } catch (const std::overflow_error&) {
        MUST(tooMany);
    }
}

void CheckPassword(const std::wstring& password) {
    try {
        const double code = PasswordCode(password, PlainCode);
        MUST(std::isfinite(code) && code >= 0);
        bool plain = !password.empty();
        for (const wchar_t ch : password)
            plain = plain && PlainCode(ch) >= 32 && PlainCode(ch) < 128;
        MUST(plain == (code > 0));
        const std::wstring statement = LogonStatement(L"a", code, DatabaseKind::Jet).text;
        MUST(statement.ends_with(L")") && statement.find(L',') == std::wstring::npos);
    } catch (const std::overflow_error&) {
        MUST(password.size() > 500);
    }
}

} // namespace

void RunOne(Input& input) {
    CheckRights(input.Line());
    const std::wstring text = input.Text();
    for (const wchar_t* tag : {L"OK", L"CAN", L"YES", L"NO", L"ABO", L"RET", L"IGN", L""}) {
        MUST(GetReturn(text, tag) >= 0 && GetReturn(text, tag) <= 7);
        MUST(GetReturn1(tag) >= 0 && GetReturn1(tag) <= 7);
    }
    MUST(GetReturn1(text) >= 0 && GetReturn1(text) <= 7);
    const long buttons = input.Number(-10, 20);
    MUST((FindButtonSet(buttons) != nullptr) == (buttons >= 0 && buttons <= 5));
    CheckPassword(input.RestText());
}

} // namespace vndesk::fuzz
