// SPDX-License-Identifier: MIT
// What vndesk-convert decides and says: command line, texts that are recognised, report, languages.
#include "convert/judge.h"
#include "convert/options.h"
#include "convert/report.h"
#include "convert/texts.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <set>

#include "text/encodings/convert.h"

namespace {

using namespace vndesk;
using namespace vndesk::convert;
using console::Language;

constexpr Encoding kSources[] = {Encoding::Tcvn3, Encoding::VniWindows, Encoding::Cp1258};
constexpr Language kLanguages[] = {Language::English, Language::Vietnamese, Language::French};

const std::wstring kNames[] = {L"Nguyễn Văn Hưng",
                               L"Công ty TNHH Thương mại Đông Đô",
                               L"12 Lê Lợi, Quận 1, TP Hồ Chí Minh",
                               L"Trần Thị Bích Ngọc",
                               L"Đỗ",
                               L"thuỷ sản đông lạnh"};

// As a provider gives it: the bytes through code page 1252.
std::wstring Stored(const std::wstring& unicode, Encoding encoding) {
    return ConvertEncoding(unicode, Encoding::Unicode, encoding).text;
}

Judged Doubted(const std::wstring& text, Encoding from) {
    const Judged judged = Judge(text, from);
    EXPECT_EQ(Verdict::Doubtful, judged.verdict);
    return judged;
}

Options Parsed(std::vector<std::wstring_view> words) {
    return ParseOptions(words);
}

std::vector<std::wstring_view> Complete(std::vector<std::wstring_view> more = {}) {
    std::vector<std::wstring_view> words = {L"--connect", L"DSN=a",       L"--table", L"KhachHang",
                                            L"--columns", L"Ten, DiaChi", L"--from",  L"vni"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

// The places that a text has: {0}, {1}...
std::set<wchar_t> Places(const std::wstring& text) {
    std::set<wchar_t> places;
    for (std::size_t at = text.find(L'{'); at != text.npos; at = text.find(L'{', at + 1))
        places.insert(text.at(at + 1));
    return places;
}

} // namespace

TEST(ConvertJudge, ConvertsWhatIsInTheEncodingAndNothingElse) {
    for (const std::wstring& name : kNames)
        for (const Encoding from : kSources) {
            const std::wstring stored = Stored(name, from);
            const Judged judged = Judge(stored, from);
            EXPECT_EQ(Verdict::Convert, judged.verdict) << name.size();
            EXPECT_EQ(name, judged.converted);
            for (const Encoding other : kSources)
                if (other != from) {
                    EXPECT_NE(Verdict::Convert, Judge(stored, other).verdict);
                }
        }
}

TEST(ConvertJudge, LeavesWhatIsUnicodeOrTheSameInBoth) {
    for (const Encoding from : kSources) {
        for (const std::wstring& name : kNames)
            EXPECT_EQ(Verdict::Already, Judge(name, from).verdict);
        for (const wchar_t* plain : {L"", L"Hai Ba Trung", L"A-15/7 (x)", L"5\u00B0"})
            EXPECT_EQ(Verdict::Plain, Judge(plain, from).verdict);
    }
}

// Only letters that both have: a second run may not know them, but must leave them.
TEST(ConvertJudge, NeverConvertsASecondTime) {
    for (const wchar_t* name : {L"Cá", L"Lê Hà", L"Bà Tô Vân", L"Ngô Lý Hòa", L"ó", L"Tú Xyz Cá"})
        for (const Encoding from : kSources) {
            const Judged once = Judge(Stored(name, from), from);
            if (once.verdict != Verdict::Convert)
                continue;
            for (const Encoding again : kSources)
                EXPECT_NE(Verdict::Convert, Judge(once.converted, again).verdict);
        }
}

TEST(ConvertJudge, SaysWhyItDoubts) {
    EXPECT_EQ(Doubt::Either, Doubted(L"Cá", Encoding::Tcvn3).doubt);
    EXPECT_EQ(L"Cỏ", Doubted(L"Cá", Encoding::Tcvn3).converted);
    EXPECT_EQ(Doubt::LooksLikeVni,
              Doubted(Stored(L"Nguyễn Văn Hưng", Encoding::VniWindows), Encoding::Tcvn3).doubt);
    EXPECT_EQ(Doubt::LooksLikeTcvn3,
              Doubted(Stored(L"Nguyễn Văn Hưng", Encoding::Tcvn3), Encoding::Cp1258).doubt);
    EXPECT_EQ(Doubt::LooksLikeCp1258,
              Doubted(Stored(L"Nguyễn Văn Hưng", Encoding::Cp1258), Encoding::VniWindows).doubt);
    EXPECT_EQ(Doubt::NotRecognised, Doubted(L"Garçon Müller & Søn", Encoding::Tcvn3).doubt);
    EXPECT_EQ(Doubt::NotRecognised, Doubted(L"北京", Encoding::Tcvn3).doubt);
    // Half of it has been retyped in Unicode.
    EXPECT_EQ(Doubt::NotRecognised,
              Doubted(Stored(L"Công ty Thương mại", Encoding::Tcvn3) + L" Nguyễn", Encoding::Tcvn3)
                  .doubt);
    std::set<std::wstring> names;
    for (int i = 1; i < static_cast<int>(Doubt::Count); ++i)
        EXPECT_TRUE(names.insert(NameOf(static_cast<Doubt>(i))).second);
}

// Code page 1252 makes U+201C of the byte 93, which no old Vietnamese encoding has.
TEST(ConvertJudge, ReadsCharactersThatCodePage1252HasMade) {
    const std::wstring inner = L"Hà Nội thân yêu";
    EXPECT_EQ(
        L"\u201CHà Nội thân yêu\u201D \u2013 \u2026",
        Judge(L"\u201C" + Stored(inner, Encoding::Tcvn3) + L"\u201D \u2013 \u2026", Encoding::Tcvn3)
            .converted);
    // The same where the provider gives each byte as a character.
    EXPECT_EQ(
        L"\u201CHà Nội thân yêu\u201D",
        Judge(L"\u0093" + Stored(inner, Encoding::VniWindows) + L"\u0094", Encoding::VniWindows)
            .converted);
    EXPECT_EQ(
        L"\u201CHà Nội thân yêu\u201D",
        Judge(L"\u201C" + Stored(inner, Encoding::Cp1258) + L"\u201D", Encoding::Cp1258).converted);
    EXPECT_EQ(L"a\u0080\u0099\u009F", AnsiBytes(L"a\u20AC\u2122\u0178"));
    EXPECT_FALSE(AnsiBytes(L"\u1EA1"));
}

TEST(ConvertJudge, FilesAreJudgedAsAWhole) {
    const auto bytes = [](const std::wstring& text) { return ByteText(text.begin(), text.end()); };
    const std::wstring text = L"Cá\r\n" + kNames[0] + L"\r\n" + kNames[1] + L"\r\n";
    for (const Encoding from : kSources) {
        const Judged judged = JudgeFile(bytes(Stored(text, from)), from);
        EXPECT_EQ(Verdict::Convert, judged.verdict);
        EXPECT_EQ(text, judged.converted);
        EXPECT_EQ(Verdict::Already, JudgeFile(bytes(L"Nguy\u00E1\u00BB\u0085n"), from).verdict)
            << "UTF-8";
        EXPECT_EQ(L"ma;ten\n", JudgeFile(bytes(L"ma;ten\n"), from).converted);
        EXPECT_EQ(Verdict::Plain, JudgeFile({}, from).verdict);
        EXPECT_EQ(Doubt::NotRecognised, JudgeFile(bytes(L"Fa\u00E7ade, Gar\u00E7on"), from).doubt);
    }
    EXPECT_EQ(Doubt::LooksLikeVni,
              JudgeFile(bytes(Stored(text, Encoding::VniWindows)), Encoding::Tcvn3).doubt);
}

TEST(ConvertOptions, AreRead) {
    const Options options =
        Parsed(Complete({L"--key", L"Ma", L"--key", L"Nam", L"--column", L"a, b", L"--dry-run",
                         L"--report", L"x.csv", L"--vi"}));
    EXPECT_EQ(L"", options.wrong);
    EXPECT_EQ(L"", options.missing);
    EXPECT_EQ(Action::Table, options.action);
    EXPECT_EQ(L"DSN=a", options.connectionString);
    EXPECT_EQ(L"KhachHang", options.table);
    EXPECT_EQ((std::vector<std::wstring>{L"Ten", L"DiaChi", L"a, b"}), options.columns);
    EXPECT_EQ((std::vector<std::wstring>{L"Ma", L"Nam"}), options.keys);
    EXPECT_EQ(Encoding::VniWindows, options.from);
    EXPECT_EQ(L"x.csv", options.report);
    EXPECT_TRUE(options.dryRun);
    EXPECT_EQ(Language::Vietnamese, options.language);
    const Options file =
        Parsed({L"--in", L"a.txt", L"--out", L"b.txt", L"--from", L"cp1258", L"--bom"});
    EXPECT_EQ(Action::File, file.action);
    EXPECT_EQ(L"", file.wrong + file.missing);
    EXPECT_EQ(L"b.txt", file.out);
    EXPECT_EQ(Encoding::Cp1258, file.from);
    EXPECT_TRUE(file.mark);
    EXPECT_EQ(Encoding::Tcvn3, Parsed({L"--from", L"tcvn3"}).from);
    EXPECT_EQ(Action::Help, Parsed({L"--help"}).action);
    EXPECT_EQ(Action::Version, Parsed({L"--version"}).action);
}

TEST(ConvertOptions, NameWhatIsWrongOrMissing) {
    EXPECT_EQ(L"--tabel", Parsed(Complete({L"--tabel", L"x"})).wrong);
    EXPECT_EQ(L"--table", Parsed({L"--table"}).wrong);
    EXPECT_EQ(L"--from", Parsed({L"--from", L"utf8"}).wrong);
    EXPECT_EQ(L"--columns", Parsed({L"--columns", L"a,,b"}).wrong);
    EXPECT_EQ(L"--key", Parsed({L"--key", L""}).wrong);
    EXPECT_EQ(L"--bom", Parsed(Complete({L"--bom"})).wrong);
    EXPECT_EQ(L"--connect", Parsed(Complete({L"--in", L"a", L"--out", L"b"})).wrong);
    EXPECT_EQ(L"--report", Parsed({L"--in", L"a", L"--out", L"b", L"--report", L"c"}).wrong);
    EXPECT_EQ(L"--connect", Parsed({}).missing);
    EXPECT_EQ(L"--columns", Parsed({L"--connect", L"a", L"--table", L"b"}).missing);
    EXPECT_EQ(L"--from", Parsed({L"--in", L"a", L"--out", L"b"}).missing);
    EXPECT_EQ(L"--out", Parsed({L"--in", L"a"}).missing);
    // What may be a password is not repeated.
    EXPECT_EQ(L"Pwd=...", Parsed({L"Pwd=geheim"}).wrong);
    EXPECT_EQ(L"--connect \"...\"", Parsed({L"--connect", L"Driver={x};Pwd=my", L"word"}).wrong);
}

TEST(ConvertReport, QuotesEveryField) {
    CsvReport report;
    report.Add(L"Ma=1", L"Ten", L"a\"b,\r\nc", {Verdict::Doubtful, Doubt::Either, L"x"});
    report.Add(L"Ma=2", L"Ten", L"Hµ", {Verdict::Convert, Doubt::None, L"Hà"});
    EXPECT_EQ(L"\"state\",\"key\",\"column\",\"reason\",\"text\",\"converted\"\r\n"
              L"\"doubtful\",\"Ma=1\",\"Ten\",\"either\",\"a\"\"b,\r\nc\",\"x\"\r\n"
              L"\"convert\",\"Ma=2\",\"Ten\",\"\",\"Hµ\",\"Hà\"\r\n",
              report.Text());
}

TEST(ConvertTexts, SayTheSameInEachLanguage) {
    for (int i = 0; i < static_cast<int>(Message::Count); ++i) {
        const auto message = static_cast<Message>(i);
        std::set<std::wstring> texts;
        for (const Language language : kLanguages) {
            const wchar_t* text = TextOf(message, language);
            ASSERT_NE(nullptr, text) << i;
            EXPECT_EQ(Places(TextOf(message, Language::English)), Places(text)) << i;
            EXPECT_TRUE(texts.insert(text).second) << i;
        }
    }
    for (const wchar_t* option : {L"--connect", L"--table", L"--columns", L"--column", L"--from",
                                  L"--key", L"--dry-run", L"--report", L"--in", L"--out", L"--bom"})
        for (const Language language : kLanguages)
            EXPECT_NE(nullptr, std::wcsstr(TextOf(Message::Usage, language), option));
}
