// SPDX-License-Identifier: MIT
// vndesk-convert.exe itself, on databases of both engines and on text files.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "support/convert_program.h"
#include "vndesk_version.h"

namespace {

using namespace vndesk;
using namespace vndesk::test;
using testing::HasSubstr;

constexpr DWORD kDone = 0, kDoubtful = 1, kNothingChanged = 2, kWrongOption = 3;
const std::wstring kName = L"Nguyễn Văn Hưng", kCompany = L"Công ty Thương mại Đông Đô",
                   kStreet = L"12 Lê Lợi, Quận 1";

class ConvertProgramTest : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (OnServer() && !SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no server: scripts/with-postgres starts one";
        database_.emplace(OnServer() ? SampleDatabase::Server() : SampleDatabase::Embedded());
    }

    static bool OnServer() { return GetParam() == std::string_view("Server"); }
    const SampleDatabase& Database() const { return *database_; }
    void Execute(const std::wstring& statement) const { Database().Execute(statement); }

    // Code, what has to be on the output.
    void Run(DWORD code, const std::vector<std::wstring>& said, const std::wstring& table,
             const std::wstring& columns, const Words& more = {}) const {
        const Conversion conversion(OnTable(Database(), table, columns, more));
        EXPECT_EQ(code, conversion.Code());
        const std::wstring text = conversion.Said();
        for (const std::wstring& part : said)
            EXPECT_THAT(ToUtf8(text), HasSubstr(ToUtf8(part)));
    }

    // All rows, cells with | between them.
    std::vector<std::wstring> Rows(const std::wstring& statement) const {
        std::vector<std::wstring> rows;
        for (const auto& row : Database().Query(statement)) {
            std::wstring line;
            for (const auto& cell : row)
                line += (line.empty() ? L"" : L"|") + cell.value_or(L"(null)");
            rows.push_back(line);
        }
        return rows;
    }

    void MakeCustomers() const {
        Execute(
            L"create table cu(ma integer primary key, ten varchar(60), dc varchar(90), n text)");
        const auto add = [&](int code, const std::wstring& values) {
            Execute(L"insert into cu values(" + std::to_wstring(code) + L"," + values + L")");
        };
        add(1, Literal(Old(kName)) + L"," + Literal(Old(kStreet)) + L",null");
        add(2, Literal(kName) + L"," + Literal(Old(kStreet)) + L"," + Literal(Old(kCompany)));
        add(3, L"'Hai Ba Trung',null,''");
        add(4, Literal(L"Cá") + L"," + Literal(L"Müller, Façade") + L"," +
                   Literal(L"\u201C" + Old(kCompany) + L"\u201D"));
        add(5, Literal(Old(kName, Encoding::VniWindows)) + L",'x',null");
    }
    static std::wstring LongText() {
        std::wstring text;
        while (text.size() < 9000)
            text += kCompany + L", ";
        return text + kName;
    }

private:
    std::optional<SampleDatabase> database_;
};

INSTANTIATE_TEST_SUITE_P(Embedded, ConvertProgramTest, testing::Values("Embedded"));
INSTANTIATE_TEST_SUITE_P(Server, ConvertProgramTest, testing::Values("Server"));

TEST_P(ConvertProgramTest, ConvertsWhatItRecognisesAndListsTheRest) {
    MakeCustomers();
    const TempDir folder;
    const std::wstring report = folder.File(L"báo cáo.csv");
    const Words from = {L"--from", L"tcvn3", L"--report", report};
    const auto before = Rows(L"select * from cu order by ma");
    Words dry = from;
    dry.push_back(L"--dry-run");
    Run(kDoubtful,
        {L"5 rows read", L"ten: 1 to convert, 1 in Unicode already, 1 the same in both, 2 doubtful",
         L"Dry run: 3 rows would be converted. Nothing has been changed."},
        L"CU", L"Ten,DC,n", dry);
    EXPECT_EQ(before, Rows(L"select * from cu order by ma"));
    EXPECT_THAT(ToUtf8(ReadUtf8File(report)),
                HasSubstr(ToUtf8(L"\"convert\",\"ma=2\",\"n\",\"\",\"" + Old(kCompany) + L"\",\"" +
                                 kCompany + L"\"\r\n")));
    Run(kDoubtful,
        {L"3 rows converted.", L"Doubtful, and left as they are: 3.", L"3 of 3 rows written"},
        L"cu", L"Ten,DC,n", from);
    const std::vector<std::wstring> after = {
        L"1|" + kName + L"|" + kStreet + L"|(null)",
        L"2|" + kName + L"|" + kStreet + L"|" + kCompany,
        L"3|Hai Ba Trung|(null)|",
        L"4|Cá|Müller, Façade|\u201C" + kCompany + L"\u201D",
        L"5|" + Old(kName, Encoding::VniWindows) + L"|x|(null)",
    };
    EXPECT_EQ(after, Rows(L"select * from cu order by ma"));
    EXPECT_EQ(
        L"\"state\",\"key\",\"column\",\"reason\",\"text\",\"converted\"\r\n"
        L"\"doubtful\",\"ma=4\",\"ten\",\"either\",\"Cá\",\"Cỏ\"\r\n"
        L"\"doubtful\",\"ma=4\",\"dc\",\"not-recognised\",\"Müller, Façade\",\"" +
            ConvertEncoding(L"Müller, Façade", Encoding::Tcvn3, Encoding::Unicode).text +
            L"\"\r\n\"doubtful\",\"ma=5\",\"ten\",\"looks-like-vni\",\"" +
            Old(kName, Encoding::VniWindows) + L"\",\"" +
            ConvertEncoding(Old(kName, Encoding::VniWindows), Encoding::Tcvn3, Encoding::Unicode)
                .text +
            L"\"\r\n",
        ReadUtf8File(report));
    std::ifstream mark(std::filesystem::path(report), std::ios::binary);
    EXPECT_EQ(0xEF, mark.get()) << "UTF-8 says so";
    // Run twice it changes nothing, whatever it is asked for.
    for (const wchar_t* again : {L"tcvn3", L"cp1258"})
        Run(kDoubtful, {L"There is nothing to convert."}, L"cu", L"ten,dc,n", {L"--from", again});
    EXPECT_EQ(after, Rows(L"select * from cu order by ma"));
    Run(kDone, {L"1 rows converted."}, L"cu", L"ten", {L"--from", L"vni"});
    EXPECT_EQ(L"5|" + kName + L"|x|(null)", Rows(L"select * from cu order by ma").back());
}

TEST_P(ConvertProgramTest, TakesNamesAsTheyAre) {
    Execute(L"create table \"Bảng ['`;--?]\"(\"Mã \"\"số\"\"\" varchar(20), \"n?\" integer, "
            L"\"Tên, họ]\" varchar(60), \"select\" varchar(60), primary key(\"Mã \"\"số\"\"\", "
            L"\"n?\"))");
    Execute(L"insert into \"Bảng ['`;--?]\" values('a''b',1," + Literal(Old(kName)) + L",'')");
    Execute(L"insert into \"Bảng ['`;--?]\" values('a''b',2," + Literal(Old(kCompany)) + L"," +
            Literal(Old(kName)) + L")");
    Run(kDone, {L"2 rows converted."}, L"Bảng ['`;--?]", L"select",
        {L"--column", L"Tên, họ]", L"--from", L"tcvn3"});
    EXPECT_EQ(
        (std::vector<std::wstring>{L"a'b|1|" + kName + L"|", L"a'b|2|" + kCompany + L"|" + kName}),
        Rows(L"select * from \"Bảng ['`;--?]\" order by \"n?\""));
    Run(kNothingChanged, {L"has no column x\"; drop table cu; --."}, L"Bảng ['`;--?]",
        L"x\"; drop table cu; --", {L"--from", L"tcvn3"});
}

TEST_P(ConvertProgramTest, SaysWhatPreventsIt) {
    MakeCustomers();
    Execute(L"create table nokey(a integer, b varchar(50))");
    Execute(L"insert into nokey values(1," + Literal(Old(kName)) + L")");
    Execute(L"insert into nokey values(null," + Literal(Old(kStreet)) + L")");
    const Words from = {L"--from", L"tcvn3"};
    Run(kNothingChanged, {L"The table nowhere cannot be read. ", L"Nothing has been changed."},
        L"nowhere", L"ten", from);
    Run(kNothingChanged, {L"has no column nothing."}, L"cu", L"ten,nothing", from);
    Run(kNothingChanged, {L"The column ma of the table cu holds no text."}, L"cu", L"ma", from);
    Run(kNothingChanged, {L"no primary key", L"--key"}, L"nokey", L"b", from);
    Run(kNothingChanged, {L"has no column c."}, L"nokey", L"b",
        {L"--from", L"tcvn3", L"--key", L"c"});
    Run(kDoubtful, {L"1 rows converted."}, L"nokey", L"b", {L"--from", L"tcvn3", L"--key", L"a"});
    EXPECT_EQ(Old(kStreet), Database().ScalarText(L"select b from nokey where a is null"));
    Execute(L"update nokey set a=7, b=" + Literal(Old(kName)));
    Run(kNothingChanged, {L"a=7 does not tell the rows"}, L"nokey", L"b",
        {L"--from", L"tcvn3", L"--key", L"a"});
    EXPECT_EQ(L"2",
              Database().ScalarText(L"select count(*) from nokey where b=" + Literal(Old(kName))));
    // Both keys are the same as doubles: no row is written for the other one.
    Execute(L"create table big(ma bigint primary key, ten varchar(60))");
    Execute(L"insert into big values(9007199254740992,'Hai Ba Trung')");
    Execute(L"insert into big values(9007199254740993," + Literal(Old(kName)) + L")");
    Run(kNothingChanged, {L"Nothing has been changed."}, L"big", L"ten", from);
    EXPECT_EQ(L"1", Database().ScalarText(L"select count(*) from big where ten='Hai Ba Trung'"));
    const auto before = Rows(L"select * from cu order by ma");
    const TempDir folder;
    Run(kNothingChanged, {L"The report ", L"cannot be written."}, L"cu", L"ten",
        {L"--from", L"tcvn3", L"--report", folder.File(L"not there\\x.csv")});
    Conversion unopened({L"--connect", L"Driver={none};Pwd=geheim", L"--table", L"a", L"--columns",
                         L"b", L"--from", L"vni"});
    EXPECT_EQ(kNothingChanged, unopened.Code());
    EXPECT_THAT(ToUtf8(unopened.Said()), HasSubstr("The database cannot be opened. "));
    EXPECT_EQ(std::wstring::npos, unopened.Said().find(L"geheim"));
    EXPECT_EQ(before, Rows(L"select * from cu order by ma"));
}

// The second row is refused when the first one is written.
TEST_P(ConvertProgramTest, WritesNothingWhereOneRowIsRefused) {
    Execute(std::wstring(L"create table narrow(ma integer primary key, ten varchar(60) check (") +
            (OnServer() ? L"octet_length(ten)" : L"length(cast(ten as blob))") + L"<=40))");
    Execute(L"insert into narrow values(1," + Literal(Old(L"Hà Nội")) + L")");
    // Two bytes each in UTF-8, three after the conversion.
    Execute(L"insert into narrow values(2," + Literal(Old(L"ấầẩẫậ ế ờ ợ ấn ậm ầm")) + L")");
    const std::wstring rows = L"select * from narrow order by ma";
    const auto before = Rows(rows);
    Run(kNothingChanged, {L"The row ma=2 cannot be written. ", L"Nothing has been changed."},
        L"narrow", L"ten", {L"--from", L"tcvn3"});
    EXPECT_EQ(before, Rows(rows));
    // An engine that does not keep what it is given.
    Execute(OnServer() ? L"create function cut() returns trigger as 'begin new.t:=left(new.t,4); "
                         L"return new; end' language plpgsql"
                       : L"create table cuts(ma integer primary key, t varchar(60))");
    if (OnServer())
        Execute(L"create table cuts(ma integer primary key, t varchar(60))");
    Execute(L"insert into cuts values(9," + Literal(Old(kName)) + L")");
    Execute(OnServer() ? L"create trigger cut before update on cuts for each row execute function "
                         L"cut()"
                       : L"create trigger cut after update on cuts begin update cuts set "
                         L"t=substr(new.t,1,4) where ma=new.ma; end");
    Run(kNothingChanged,
        {L"The database has not kept the letters of the row ma=9 in the column t."}, L"cuts", L"t",
        {L"--from", L"tcvn3"});
    EXPECT_EQ(Old(kName), Database().ScalarText(L"select t from cuts"));
}

TEST_P(ConvertProgramTest, ConvertsKeysLongTextsAndEmptyTables) {
    Execute(L"create table names(ten varchar(60) primary key, more text)");
    Run(kDone, {L"0 rows read", L"There is nothing to convert."}, L"names", L"ten,more",
        {L"--from", L"vni"});
    Execute(L"insert into names values(" + Literal(Old(kName, Encoding::VniWindows)) + L"," +
            Literal(Old(LongText(), Encoding::VniWindows)) + L")");
    Run(kDone, {L"1 rows converted."}, L"names", L"ten,more", {L"--from", L"vni"});
    EXPECT_EQ(std::vector<std::wstring>{kName + L"|" + LongText()}, Rows(L"select * from names"));
}

TEST_P(ConvertProgramTest, LeavesADatabaseThatItCannotWrite) {
    Execute(L"create table t(ma integer primary key, ten varchar(60))");
    Execute(L"insert into t values(1," + Literal(Old(kName)) + L")");
    // As root nobody is kept from a file, and so it is locked.
    OdbcSession other(Database().OdbcString());
    Words words = OnTable(Database(), L"t", L"ten", {L"--from", L"tcvn3"});
    if (OnServer()) {
        other.Execute(L"alter database " +
                      Database().ScalarText(L"select quote_ident(current_database())") +
                      L" set default_transaction_read_only=on");
    } else {
        words[1] = Database().OdbcString() + L"Timeout=100;";
        other.Execute(L"begin immediate");
    }
    const Conversion refused(words);
    EXPECT_EQ(kNothingChanged, refused.Code());
    EXPECT_THAT(ToUtf8(refused.Said()), HasSubstr("The row ma=1 cannot be written. "));
    EXPECT_THAT(ToUtf8(refused.Said()), HasSubstr("Nothing has been changed."));
    EXPECT_EQ(Old(kName), other.ScalarText(L"select ten from t"));
}

TEST(ConvertProgramFileTest, ConvertsTextFiles) {
    const TempDir folder;
    const std::wstring text = kName + L"\r\n" + kCompany + L"\r\n", in = folder.File(L"cũ.txt"),
                       out = folder.File(L"mới.txt");
    const auto write = [&](const std::wstring& bytes) {
        std::ofstream(std::filesystem::path(in), std::ios::binary)
            << std::string(bytes.begin(), bytes.end());
    };
    const auto read = [&](const std::wstring& path) {
        std::ifstream file(std::filesystem::path(path), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const auto run = [&](DWORD code, const char* said, Words words) {
        words.insert(words.begin(), {L"--in", in});
        const Conversion conversion(words);
        EXPECT_EQ(code, conversion.Code());
        EXPECT_THAT(ToUtf8(conversion.Said()), HasSubstr(said));
    };
    write(Old(text, Encoding::Cp1258));
    run(kNothingChanged, "is not recognised (looks-like-cp1258)",
        {L"--out", out, L"--from", L"tcvn3"});
    run(kDone, "Nothing has been written.", {L"--out", out, L"--from", L"cp1258", L"--dry-run"});
    EXPECT_FALSE(std::filesystem::exists(out));
    run(kNothingChanged, "cannot be written",
        {L"--out", folder.File(L"not there\\x"), L"--from", L"cp1258"});
    run(kDone, "has been converted to", {L"--out", out, L"--from", L"cp1258"});
    EXPECT_EQ(ToUtf8(text), read(out));
    run(kDone, "", {L"--out", in, L"--from", L"cp1258", L"--bom"}); // onto itself
    EXPECT_EQ("\xEF\xBB\xBF" + ToUtf8(text), read(in));
    run(kNothingChanged, "is Unicode already", {L"--out", out, L"--from", L"cp1258"});
    DeleteFileW(in.c_str());
    run(kNothingChanged, "cannot be read", {L"--out", out, L"--from", L"cp1258"});
    DeleteFileW(out.c_str());
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path())) << "nothing is left beside";
}

TEST(ConvertProgramFileTest, TellsItsVersionItsUsageAndWhatItDoesNotUnderstand) {
    const Conversion version({L"--version"}), help({L"--help"}), wrong({L"--tabel", L"x"}),
        missing({L"--table", L"x"});
    EXPECT_EQ(kDone, version.Code());
    EXPECT_EQ(L"vndesk-convert " VNDESK_WIDE_VERSION L"\n", version.Said());
    EXPECT_EQ(kDone, help.Code());
    EXPECT_EQ(0u, help.Said().find(L"vndesk-convert --connect STRING"));
    EXPECT_EQ(kWrongOption, wrong.Code());
    EXPECT_EQ(0u, wrong.Said().find(L"vndesk-convert: --tabel?\n"));
    EXPECT_EQ(kWrongOption, missing.Code());
    EXPECT_EQ(0u, missing.Said().find(L"vndesk-convert: --connect is missing.\n"));
}

} // namespace
