// SPDX-License-Identifier: MIT
// Connection strings of the ADO for Wine.
#include <gtest/gtest.h>

#include <stdexcept>

#include "ado/text/connection_string.h"

namespace {

using namespace vndesk::ado;

TEST(AdoConnectionString, KeysAndValues) {
    const ConnectionString string(L"Provider=Microsoft.Jet.OLEDB.4.0; data source = C:\\Dữ "
                                  L"liệu\\host.db ;Jet OLEDB:Engine Type=5;");
    EXPECT_EQ(L"Microsoft.Jet.OLEDB.4.0", string.Value(L"PROVIDER"));
    EXPECT_EQ(L"C:\\Dữ liệu\\host.db", string.Value(L"Data Source"));
    EXPECT_EQ(L"5", string.Value(L"jet oledb:engine type"));
    EXPECT_FALSE(string.Has(L"UID"));
    EXPECT_EQ(L"", string.Value(L"UID"));
    EXPECT_EQ(3u, string.Items().size());
}

TEST(AdoConnectionString, QuotedValues) {
    const ConnectionString string(L"Driver={PostgreSQL Unicode};Pwd={a;b}}c};Extended "
                                  L"Properties=\"DSN=x;UID=\"\"u\"\"\";a='it''s';e=");
    EXPECT_EQ(L"PostgreSQL Unicode", string.Value(L"Driver"));
    EXPECT_EQ(L"a;b}c", string.Value(L"Pwd"));
    EXPECT_EQ(L"DSN=x;UID=\"u\"", string.Value(L"Extended Properties"));
    EXPECT_EQ(L"it's", string.Value(L"a"));
    EXPECT_TRUE(string.Has(L"e"));
    EXPECT_EQ(L"", string.Value(L"e"));
}

TEST(AdoConnectionString, ValuesMayHoldEqualSigns) {
    EXPECT_EQ(L"a=b", ConnectionString(L"Pwd=a=b;x=y").Value(L"pwd"));
}

TEST(AdoConnectionString, EmptyItemsDoNotMatter) {
    EXPECT_EQ(2u, ConnectionString(L";;a=1; ;b=2;;").Items().size());
    EXPECT_TRUE(ConnectionString(L"").Items().empty());
}

TEST(AdoConnectionString, OfAKeyGivenTwiceTheLastCounts) {
    ConnectionString string(L"a=1;A=2");
    EXPECT_EQ(L"2", string.Value(L"a"));
    string.Set(L"a", L"3");
    EXPECT_EQ(L"3", string.Value(L"a"));
    EXPECT_EQ(2u, string.Items().size());
}

TEST(AdoConnectionString, WhatIsNone) {
    EXPECT_THROW(ConnectionString(L"junk"), std::invalid_argument);
    EXPECT_THROW(ConnectionString(L"a=1;junk;b=2"), std::invalid_argument);
    EXPECT_THROW(ConnectionString(L"a={open"), std::invalid_argument);
    EXPECT_THROW(ConnectionString(L"a=\"open"), std::invalid_argument);
}

TEST(AdoConnectionString, Providers) {
    EXPECT_EQ(ProviderKind::Jet, KindOfProvider(L"Microsoft.Jet.OLEDB.4.0;"));
    EXPECT_EQ(ProviderKind::Jet, KindOfProvider(L" microsoft.jet.oledb.4.0 "));
    EXPECT_EQ(ProviderKind::Odbc, KindOfProvider(L""));
    EXPECT_EQ(ProviderKind::Odbc, KindOfProvider(L"MSDASQL"));
    EXPECT_EQ(ProviderKind::Odbc, KindOfProvider(L"MSDASQL.1;"));
    EXPECT_EQ(ProviderKind::Unknown, KindOfProvider(L"SQLOLEDB"));
}

std::wstring Odbc(std::wstring_view given, std::wstring_view user = L"",
                  std::wstring_view password = L"") {
    return FormatOdbc(OdbcConnectionString(ConnectionString(given), user, password));
}

TEST(AdoConnectionString, OdbcStringsPass) {
    EXPECT_EQ(L"Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=5432;Uid=u;Pwd=p=q",
              Odbc(L"Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=5432;Uid=u;Pwd=p=q"));
    EXPECT_EQ(L"DSN=host", Odbc(L"DSN=host"));
    EXPECT_EQ(L"PWD={a;b}}c}", Odbc(L"PWD={a;b}}c}"));
}

TEST(AdoConnectionString, OleDbNamesBecomeOdbcNames) {
    EXPECT_EQ(L"DSN=host;UID=u;PWD=p;DATABASE=d",
              Odbc(L"Provider=MSDASQL;Data Source=host;User ID=u;Password=p;Initial Catalog=d;"
                   L"Persist Security Info=False"));
    EXPECT_EQ(L"DSN=x;UID=u", Odbc(L"Provider=MSDASQL.1;Extended Properties=\"DSN=x;UID=u\""));
}

TEST(AdoConnectionString, ArgumentsOfOpenWin) {
    EXPECT_EQ(L"DSN=x;uid=a;PWD=b", Odbc(L"DSN=x;uid=old", L"a", L"b"));
    EXPECT_EQ(L"DSN=x;uid=old", Odbc(L"DSN=x;uid=old", L"", L""));
}

} // namespace
