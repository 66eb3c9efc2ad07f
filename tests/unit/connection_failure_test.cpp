// SPDX-License-Identifier: MIT
// Why a database could not be opened: the words of providers and drivers, as they say them.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "data/text/connection_failure.h"
#include "text/tcvn3.h"

namespace {

using namespace vndesk;
using enum FailureReason;

constexpr auto kProviderNotFound = static_cast<std::int32_t>(0x800A0E7A);
constexpr auto kClassNotRegistered = static_cast<std::int32_t>(0x80040154);

struct Known {
    FailureReason reason;
    ProviderError error;
};

void PrintTo(const Known& row, std::ostream* out) {
    *out << std::string(row.error.text.begin(), row.error.text.end());
}

const Known kKnown[] = {
    {ServerNotFound,
     {-2147467259, 101, L"08001", L"could not connect to server: Connection refused"}},
    {ServerNotFound,
     {-2147467259, 17, L"08001",
      L"[DBNETLIB][ConnectionOpen (Connect()).]SQL Server does not exist or access "
      L"denied."}},
    {ServerNotFound,
     {-2147467259, 53, L"08001",
      L"Named Pipes Provider: Could not open a connection "
      L"to SQL Server [53]."}},
    {ServerNotFound, {-2147467259, 2002, L"HY000", L"Can't connect to server on '10.0.0.9' (115)"}},
    {ServerNotFound, {-2147467259, 2005, L"HY000", L"Unknown server host 'khong-co' (-2)"}},
    {ServerNotFound, {-2147467259, 0, L"HYT00", L"Login timeout expired"}},
    {NameOrPassword, {-2147217843, 18456, L"42000", L"Login failed for user 'sa'."}},
    {NameOrPassword,
     {-2147467259, 101, L"08001", L"FATAL:  password authentication failed for user \"vn\""}},
    {NameOrPassword,
     {-2147467259, 1045, L"28000",
      L"Access denied for user 'vn'@'localhost' "
      L"(using password: YES)"}},
    {NameOrPassword, {-2147217843, 0, L"", L"Not a valid password."}},
    {DriverMissing,
     {kProviderNotFound, 0, L"", L"Provider cannot be found. It may not be properly installed."}},
    {DriverMissing, {kClassNotRegistered, 0, L"", L"Class not registered"}},
    {DriverMissing,
     {-2147467259, 0, L"IM002",
      L"[Microsoft][ODBC Driver Manager] Data source name "
      L"not found and no default driver specified"}},
    {DriverMissing,
     {-2147467259, 0, L"IM014",
      L"The specified DSN contains an architecture mismatch "
      L"between the Driver and Application"}},
    {DriverMissing,
     {-2147467259, 0, L"01000",
      L"[unixODBC][Driver Manager]Can't open lib "
      L"'psqlodbcw.so' : file not found"}},
    {CertificateNotTrusted,
     {-2147467259, -2146893019, L"08001",
      L"SSL Provider: The certificate chain was issued by an authority that is "
      L"not trusted."}},
    {CertificateNotTrusted, {-2147467259, 101, L"08001", L"SSL error: certificate verify failed"}},
    {CertificateNotTrusted,
     {-2147467259, -2146893022, L"08001", L"SSL Provider: Tên chính không đúng."}},
    {FileNotFound, {-2147467259, -1811, L"3024", L"Could not find file 'C:\\kho.mdb'."}},
    {FileNotFound, {-2147467259, 14, L"HY000", L"[SQLite]connect failed"}},
    {FileNotFound, {-2147467259, -1023, L"HY000", L"'C:\\x\\kho.mdb' is not a valid path."}},
    {DatabaseNotFound, {-2147467259, 101, L"08001", L"FATAL:  database \"kho\" does not exist"}},
    {DatabaseNotFound, {-2147467259, 1049, L"42000", L"Unknown database 'kho'"}},
    {DatabaseNotFound,
     {-2147217843, 4060, L"08004",
      L"Cannot open database \"kho\" requested by the "
      L"login. The login failed."}},
    {ServerNotReady, {-2147467259, 101, L"08001", L"FATAL:  the database system is starting up"}},
    {ServerNotReady, {-2147467259, 1040, L"08004", L"Too many connections"}},
    {Unknown, {-2147467259, 101, L"08001", L"FATAL:  no pg_hba.conf entry for host \"10.0.0.7\""}},
    // In the language of the server or the machine, the numbers tell what there is to tell.
    {NameOrPassword, {-2147467259, 18456, L"42000", L"Đăng nhập thất bại."}},
    {DatabaseNotFound, {-2147467259, 4060, L"42000", L"Không mở được."}},
    {DatabaseNotFound, {-2147467259, 1049, L"42000", L"Không có."}},
    {ServerNotFound, {-2147467259, 53, L"08001", L"Không có đường đến máy chủ."}},
    {ServerNotFound, {-2147467259, 101, L"08001", L"server closed the connection unexpectedly"}},
    {ServerNotFound,
     {-2147467259, 101, L"08001", L"connection to server failed: No route to host"}},
    {Unknown, {-2147467259, 101, L"08001", L"xác thực mật khẩu thất bại cho người dùng"}},
    {Unknown, {-2147467259, 0, L"", L"Unspecified error"}},
};

class KnownFailure : public testing::TestWithParam<Known> {};

TEST_P(KnownFailure, IsRecognised) {
    EXPECT_EQ(GetParam().reason, FailureOf(L"Server=x", {GetParam().error}, 32).reason);
}

INSTANTIATE_TEST_SUITE_P(Drivers, KnownFailure, testing::ValuesIn(kKnown));

TEST(ConnectionFailure, OfSeveralErrorsTheOneThatTellsMostCounts) {
    const auto failure = FailureOf(L"",
                                   {{0, 0, L"01000", L"Something else"},
                                    {0, 0, L"08001", L"Client unable to establish connection"},
                                    {0, -2146893019, L"08001", L"SSL"}},
                                   64);
    EXPECT_EQ(CertificateNotTrusted, failure.reason);
}

TEST(ConnectionFailure, JetIsMissingInEvery64BitProgram) {
    const std::vector<ProviderError> missing = {{kProviderNotFound}};
    const wchar_t jet[] = L"provider=MICROSOFT.JET.OLEDB.4.0;Data Source=kho.mdb";
    EXPECT_EQ(JetIn64Bits, FailureOf(jet, missing, 64).reason);
    EXPECT_EQ(DriverMissing, FailureOf(jet, missing, 32).reason);
    EXPECT_EQ(DriverMissing,
              FailureOf(L"Provider=Microsoft.ACE.OLEDB.12.0;Jet OLEDB:Engine Type=5", missing, 64)
                  .reason);
}

TEST(ConnectionFailure, TextsAreToldOnceWithTheirNumbersAndWithoutSecrets) {
    const auto failure = FailureOf(L"UID=banhang;PWD=Hush1",
                                   {{1, 18456, L"42000", L"Login failed for user 'banhang'."},
                                    {1, 18456, L"42000", L"Login failed for user 'banhang'."},
                                    {1, 0, L"", L"UID=banhang;PWD=Hush1"}},
                                   32);
    EXPECT_EQ(L"Login failed for user '***'. (42000, 18456)\r\nUID=***;PWD=***",
              failure.providerText);
}

TEST(ConnectionFailure, LinesOfTheProviderEndAsTextBoxesNeedIt) {
    EXPECT_EQ(L"one\r\n\ttwo\r\nthree (08001, 101)",
              FailureOf(L"", {{0, 101, L"08001", L"one\n\ttwo\r\nthree\n \n"}}, 64).providerText);
}

TEST(ConnectionFailure, IsToldInASentence) {
    const auto sentence = [](FailureReason reason) {
        return ToUncText(ReasonSentence({reason, 64}), kToUnicode);
    };
    EXPECT_EQ(L"", sentence(Unknown));
    EXPECT_EQ(L"Chứng chỉ của máy chủ không được tin cậy.", sentence(CertificateNotTrusted));
    EXPECT_EQ(L"Máy này thiếu trình điều khiển cơ sở dữ liệu cho chương trình 64 bit.",
              sentence(DriverMissing));
    EXPECT_EQ(L"Jet 4.0 không dùng được trong chương trình 64 bit.", sentence(JetIn64Bits));
    EXPECT_EQ(L"Tên hoặc mật khẩu dùng để vào cơ sở dữ liệu không đúng.", sentence(NameOrPassword));
    EXPECT_EQ(L"Máy chủ không có cơ sở dữ liệu này.", sentence(DatabaseNotFound));
    EXPECT_EQ(L"Không tìm thấy tệp cơ sở dữ liệu.", sentence(FileNotFound));
    EXPECT_EQ(L"Máy chủ đang bận hoặc chưa sẵn sàng.", sentence(ServerNotReady));
    EXPECT_EQ(L"Không tìm thấy máy chủ, hoặc máy chủ không trả lời.", sentence(ServerNotFound));
}

} // namespace
