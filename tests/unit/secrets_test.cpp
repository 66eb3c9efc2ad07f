// SPDX-License-Identifier: MIT
// Names and passwords in connection strings, and what providers repeat of them.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "data/text/secrets.h"

namespace {

using vndesk::Secrets;

// What a person may see of a connection string.
std::wstring Shown(const std::wstring& connectionString) {
    return Secrets(connectionString).Hide(connectionString);
}

struct Hidden {
    const wchar_t* string;
    const wchar_t* shown;
};

constexpr Hidden kStrings[] = {
    {L"Provider=MSOLEDBSQL19;Data Source=srv\\sql;User ID=sa;Password=Bí mật;Initial Catalog=Kho",
     L"Provider=MSOLEDBSQL19;Data Source=srv\\sql;User ID=***;Password=***;Initial Catalog=Kho"},
    {L"Driver={PostgreSQL Unicode};Server=db;UID=vn;PWD=x;Database=kho",
     L"Driver={PostgreSQL Unicode};Server=db;UID=***;PWD=***;Database=kho"},
    {L"pWd = hush ; uSeR   iD=me;a=1", L"pWd = ***; uSeR   iD=***;a=1"},
    {L"PASSWORD\t=\r\n hush", L"PASSWORD\t=\r\n ***"},
    {L"Pwd={a;b}}c};Server=db", L"Pwd=***;Server=db"},
    {L"Pwd=\"a;b\"\"c\" ;Server=db", L"Pwd=***;Server=db"},
    {L"Pwd='a;b''c';Server=db", L"Pwd=***;Server=db"},
    {L"Pwd={a;b;Server=db", L"Pwd=***"},
    {L"Pwd='a;b;Server=db", L"Pwd=***"},
    {L"Pwd==a=b=;Server=db", L"Pwd=***;Server=db"},
    {L"Pwd=;UID=;Server=db", L"Pwd=***;UID=***;Server=db"},
    {L"Pwd=\"\";Server=db", L"Pwd=***;Server=db"},
    {L"Jet OLEDB:Database Password=hush;Jet OLEDB:Engine Type=5",
     L"Jet OLEDB:Database Password=***;Jet OLEDB:Engine Type=5"},
    {L"Extended Properties=\"DSN=d;UID=me;PWD=\"\"a;b\"\"\";Mode=Read",
     L"Extended Properties=\"DSN=d;UID=***;PWD=***;Mode=Read"},
    {L"Server='db;Pwd=hush;Kho='", L"Server='db;Pwd=***;Kho='"},
    {L"pqopt={password=hush host=a,b};Server=db", L"pqopt={password=***;Server=db"},
    {L"Server=postgres://me:hush@db/kho;a=1", L"Server=postgres://***@db/kho;a=1"},
    {L"User=me;Username=me2;Login Name=me3;Access Token=abcdef",
     L"User=***;Username=***;Login Name=***;Access Token=***"},
    {L"Mask Password=True;Persist Security Info=False;User Instance=true",
     L"Mask Password=True;Persist Security Info=False;User Instance=true"},
    {L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Dữ liệu\\kho.mdb",
     L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Dữ liệu\\kho.mdb"},
    {L"", L""},
};

void PrintTo(const Hidden& row, std::ostream* out) {
    *out << std::string(row.string, row.string + std::char_traits<wchar_t>::length(row.string));
}

class HiddenSecrets : public testing::TestWithParam<Hidden> {};

TEST_P(HiddenSecrets, StandAsAsterisks) {
    EXPECT_EQ(GetParam().shown, Shown(GetParam().string));
}

INSTANTIATE_TEST_SUITE_P(Strings, HiddenSecrets, testing::ValuesIn(kStrings));

TEST(Secrets, AreHiddenWhereTheProviderRepeatsThem) {
    const Secrets secrets(L"Server=db;UID=banhang;PWD='Hush;1'");
    EXPECT_EQ(L"Login failed for user \"***\".", secrets.Hide(L"Login failed for user "
                                                              L"\"BanHang\"."));
    EXPECT_EQ(L"no *** here", secrets.Hide(L"no Hush;1 here"));
    EXPECT_EQ(L"x***x", secrets.Hide(L"xhush;1x"));
}

TEST(Secrets, AreKnownAsTheStringHasThemAndAsTheyAreMeant) {
    const Secrets secrets(L"PWD={it}}is};User ID=\"o\"\"brien\"");
    EXPECT_EQ(L"[***] [***]", secrets.Hide(L"[it}}is] [it}is]"));
    EXPECT_EQ(L"[***] [***]", secrets.Hide(L"[o\"brien] [o\"\"brien]"));
}

TEST(Secrets, ShortOnesAreHiddenAsWholeWordsOnly) {
    const Secrets secrets(L"UID=sa;PWD=a");
    EXPECT_EQ(L"SQL says: user '***' has *** password", secrets.Hide(L"SQL says: user 'sa' has a "
                                                                     L"password"));
    EXPECT_EQ(L"‘***’, đasa", secrets.Hide(L"‘sa’, đasa"));
}

TEST(Secrets, BehindTheKeysOfAnyTextAreHiddenToo) {
    EXPECT_EQ(L"Bad string: Server=x;Pwd=***;Uid=***",
              Secrets().Hide(L"Bad string: Server=x;Pwd=other;Uid=me"));
}

TEST(Secrets, OfOneOptionInsideAnotherAreKnown) {
    const Secrets secrets(L"pqopt={user=banhang password=hush2 host=a,b}");
    EXPECT_EQ(L"user \"***\" with *** on a", secrets.Hide(L"user \"banhang\" with hush2 on a"));
}

TEST(Secrets, TextsWithoutThemStayAsTheyAre) {
    const std::wstring text = L"Không tìm thấy máy chủ db (10061).\r\nTimeout";
    EXPECT_EQ(text, Secrets(L"UID=banhang;PWD=Hush;Server=db").Hide(text));
}

} // namespace
