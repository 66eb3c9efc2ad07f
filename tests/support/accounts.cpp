// SPDX-License-Identifier: MIT
#include "support/accounts.h"

#include "passwords/base64.h"
#include "passwords/key_derivation.h"
#include "passwords/password_text.h"
#include "passwords/text/password_record.h"

namespace vndesk::test {

namespace {

constexpr unsigned long kCheapCost = 1000;

std::wstring TextOr(std::optional<double> number, const wchar_t* otherwise) {
    return number ? std::to_wstring(*number) : otherwise;
}

} // namespace

std::wstring CheapHash(std::wstring_view password) {
    unsigned char salt[kSaltBytes], key[kKeyBytes];
    FillWithRandomBytes(salt);
    const Wiped<unsigned char> bytes = PasswordBytes(password);
    DeriveKey({bytes.Data(), bytes.Size()}, salt, kCheapCost, key);
    return WritePasswordRecord({kCheapCost, ToBase64(salt), ToBase64(key)});
}

void Accounts::SetUp() {
    if (OnServer() && !SampleDatabase::ServerAvailable())
        GTEST_SKIP() << "no PostgreSQL server: VNDESK_PG is not set";
    database_ = std::make_unique<SampleDatabase>(OnServer() ? SampleDatabase::Server()
                                                            : SampleDatabase::Embedded());
    Upgrade(*database_, L"accounts");
    Upgrade(*database_, L"audit");
    AddUser(kThu, kThuName, kAbc);
}

void Accounts::AddUser(long code, const std::wstring& name, std::optional<double> number) {
    database_->Execute(L"insert into \"user\"(code,name,\"dec\",idgroup,password) values(" +
                       std::to_wstring(code) + L",'" + name + L"','',1," + TextOr(number, L"null") +
                       L")");
}

void Accounts::GiveHash(long code, const std::wstring& record, double number) {
    const std::wstring user = std::to_wstring(code);
    database_->Execute(L"update \"user\" set password=" + std::to_wstring(number) +
                       L" where code=" + user);
    database_->Execute(L"delete from vnuser where usercode=" + user);
    database_->Execute(L"insert into vnuser(usercode,passwordhash,failed,mustchange) values(" +
                       user + L",'" + record + L"',0,0)");
}

void Accounts::SetKept(long code, const std::wstring& assignments) {
    EXPECT_EQ(1, database_->Execute(L"update vnuser set " + assignments + L" where usercode=" +
                                    std::to_wstring(code)));
}

std::wstring Accounts::Kept(const std::wstring& column, long code) const {
    return database_->ScalarText(L"select " + column + L" from vnuser where usercode=" +
                                 std::to_wstring(code));
}

std::wstring Accounts::Number(long code) const {
    const std::wstring text =
        database_->ScalarText(L"select password from \"user\" where code=" + std::to_wstring(code));
    // Some drivers write whole doubles with a point.
    return text.ends_with(L".0") ? text.substr(0, text.size() - 2) : text;
}

long Accounts::SecondsUntil(const std::wstring& column, long code) const {
    const std::wstring user = L" from vnuser where usercode=" + std::to_wstring(code);
    return std::stol(database_->ScalarText(
        OnServer() ? L"select cast(extract(epoch from " + column +
                         L" - (current_timestamp at time zone 'UTC')) as integer)" + user
                   : L"select cast(strftime('%s'," + column +
                         L") as integer) - "
                         L"cast(strftime('%s','now') as integer)" +
                         user));
}

std::wstring Accounts::TimeLiteral(long seconds) const {
    const std::wstring span = std::to_wstring(seconds) + L" seconds";
    return L"'" +
           database_->ScalarText(
               OnServer() ? L"select to_char(current_timestamp at time zone 'UTC' + interval '" +
                                span + L"', 'YYYY-MM-DD HH24:MI:SS')"
                          : L"select datetime('now','" + span + L"')") +
           L"'";
}

long Accounts::Verify(const wchar_t* name, const wchar_t* password) const {
    return Verify(settings_, name, password);
}

long Accounts::Verify(const SecuritySettings& settings, const wchar_t* name,
                      const wchar_t* password) const {
    long code = -1;
    EXPECT_SUCCEEDED(LogonWith(settings)->VerifyPassword(_bstr_t(Connect().c_str()), _bstr_t(name),
                                                         _bstr_t(password), &code));
    return code;
}

} // namespace vndesk::test
