// SPDX-License-Identifier: MIT
// What vndesk-check says: kinds of findings, its languages, text, JSON, exit code, command line.
#include "check/options.h"
#include "check/report.h"

#include <gtest/gtest.h>

#include <set>

#include "support/strict_json.h"

using namespace vndesk::check;
using vndesk::test::Json;
using vndesk::test::JsonReader;

namespace {

const std::vector<std::wstring> kValues = {L"ZERO", L"ONE", L"TWO", L"THREE", L"FOUR"};

std::vector<Id> AllIds() {
    std::vector<Id> ids;
    for (std::size_t i = 0; i < kIdCount; ++i)
        ids.push_back(static_cast<Id>(i));
    return ids;
}

std::string Name(Id id) {
    const std::wstring name = KindOf(id).name;
    return {name.begin(), name.end()};
}

// The places that a text has: {0}, {1}...
std::set<wchar_t> Places(const std::wstring& text) {
    std::set<wchar_t> places;
    for (std::size_t at = text.find(L'{'); at != text.npos; at = text.find(L'{', at + 1))
        places.insert(text.at(at + 1));
    return places;
}

} // namespace

TEST(CheckTexts, EveryFindingIsExplainedInEachLanguage) {
    for (const Id id : AllIds()) {
        const Words& english = WordsOf(id, Language::English);
        const Words& vietnamese = WordsOf(id, Language::Vietnamese);
        const Words& french = WordsOf(id, Language::French);
        EXPECT_STRNE(L"", english.found) << Name(id);
        EXPECT_STRNE(english.found, vietnamese.found) << Name(id);
        EXPECT_STRNE(english.found, french.found) << Name(id);
        // What is not well says what it means and what to do; what is well does not.
        const bool well = KindOf(id).state == State::Ok;
        for (const Words* words : {&english, &vietnamese, &french}) {
            EXPECT_EQ(well, *words->means == L'\0') << Name(id);
            EXPECT_EQ(well, *words->todo == L'\0') << Name(id);
        }
        EXPECT_EQ(Places(english.found), Places(vietnamese.found)) << Name(id);
        EXPECT_EQ(Places(english.found), Places(french.found)) << Name(id);
    }
}

TEST(CheckTexts, VietnameseIsWrittenWithItsMarks) {
    for (const Id id : AllIds())
        for (const std::wstring text :
             {WordsOf(id, Language::Vietnamese).found, WordsOf(id, Language::Vietnamese).means}) {
            bool marked = text.empty();
            for (const wchar_t ch : text)
                marked |= ch > 0x7F;
            EXPECT_TRUE(marked) << Name(id);
        }
}

TEST(CheckTexts, NamesAreDifferentAndPlain) {
    std::set<std::wstring> names;
    for (const Id id : AllIds()) {
        const std::wstring name = KindOf(id).name;
        EXPECT_TRUE(names.insert(name).second) << Name(id);
        EXPECT_EQ(name.npos, name.find_first_not_of(L"abcdefghijklmnopqrstuvwxyz0123456789-"))
            << Name(id);
    }
}

TEST(CheckTexts, ValuesTakeTheirPlaces) {
    EXPECT_EQ(L"b, a, b", Fill(L"{1}, {0}, {1}", {L"a", L"b"}));
    EXPECT_EQ(L"<>", Fill(L"<{0}>", {}));
    EXPECT_EQ(L"{x} {", Fill(L"{x} {", {L"a"}));
    EXPECT_EQ(L"{1}b", Fill(L"{0}{1}", {L"{1}", L"b"})) << "a value is no text to fill";
}

TEST(CheckExitCode, FollowsTheWorstFinding) {
    EXPECT_EQ(0, ExitCode({}));
    EXPECT_EQ(0, ExitCode({{Id::System, {}}, {Id::Wine, {}}}));
    EXPECT_EQ(1, ExitCode({{Id::LibraryVersionDiffers, {}}, {Id::System, {}}}));
    EXPECT_EQ(2, ExitCode({{Id::LibraryNotRegistered, {}}, {Id::LibraryVersionDiffers, {}}}));
}

TEST(CheckTextReport, SaysWhatItMeansAndWhatToDo) {
    const std::wstring text = TextReport({{Id::LibraryFileMissing, {L"C:\\không\\có.dll"}}},
                                         {L"1.0.0.0", 64}, Language::English);
    EXPECT_EQ(L"VnDesk check 1.0.0.0\n"
              L"\n"
              L"[error] The registered file is not there: C:\\không\\có.dll\n"
              L"    It was moved or deleted after it had been registered.\n"
              L"    To do: Put the file back, or register vndesk.dll at its new place.\n"
              L"    (library-file-missing)\n"
              L"\n"
              L"VnDesk does not work.\n",
              text);
    EXPECT_EQ(L"Kiểm tra VnDesk 1.0.0.0\n"
              L"\n"
              L"[tốt] Tạo được cả 8 lớp.\n"
              L"\n"
              L"VnDesk dùng được.\n",
              TextReport({{Id::ClassesCreated, {L"8"}}}, {L"1.0.0.0", 32}, Language::Vietnamese));
}

TEST(CheckJson, EveryFindingIsReadBackAsItWas) {
    Findings findings;
    for (const Id id : AllIds())
        findings.push_back({id, kValues});
    for (const Language language : {Language::English, Language::Vietnamese, Language::French}) {
        const Json json = JsonReader::Read(JsonReport(findings, {L"1.0.0.0", 32}, language));
        EXPECT_EQ(L"vndesk-check", json[L"program"].text);
        EXPECT_EQ(L"1.0.0.0", json[L"version"].text);
        EXPECT_EQ(NameOf(language), json[L"language"].text);
        EXPECT_EQ(32, json[L"bits"].number);
        EXPECT_EQ(L"errors", json[L"result"].text);
        EXPECT_EQ(2, json[L"exitCode"].number);
        const std::vector<Json>& list = json[L"findings"].list;
        ASSERT_EQ(kIdCount, list.size());
        for (const Id id : AllIds()) {
            const Json& found = list[static_cast<std::size_t>(id)];
            const Words& words = WordsOf(id, language);
            EXPECT_EQ(KindOf(id).name, found[L"id"].text);
            EXPECT_EQ(Fill(words.found, kValues), found[L"text"].text);
            EXPECT_EQ(Fill(words.means, kValues), found[L"means"].text);
            EXPECT_EQ(Fill(words.todo, kValues), found[L"do"].text);
            ASSERT_EQ(kValues.size(), found[L"values"].list.size());
            EXPECT_EQ(kValues[1], found[L"values"].list[1].text);
        }
    }
}

TEST(CheckJson, EscapesWhatWouldEndAText) {
    const std::wstring nasty = L"C:\\\"a\"\n\r\t\x01\x1F ữ /";
    const Json json = JsonReader::Read(
        JsonReport({{Id::LibraryFileMissing, {nasty}}}, {L"1", 64}, Language::English));
    EXPECT_EQ(nasty, json[L"findings"].list.at(0)[L"values"].list.at(0).text);
}

TEST(CheckJson, NothingFoundIsAnEmptyList) {
    const Json json = JsonReader::Read(JsonReport({}, {L"1", 64}, Language::English));
    EXPECT_TRUE(json[L"findings"].list.empty());
    EXPECT_EQ(L"ok", json[L"result"].text);
}

TEST(StrictJson, RefusesWhatIsNoJson) {
    for (const wchar_t* wrong :
         {L"", L"{", L"{\"a\":1,}", L"[1 2]", L"\"a", L"\"\n\"", L"\"\\x\"", L"\"\\u12\"", L"01",
          L"1.", L"+1", L"{} {}", L"{\"a\":1,\"a\":2}", L"tru", L"{a:1}"})
        EXPECT_THROW(JsonReader::Read(wrong), std::runtime_error) << wrong;
    const Json json = JsonReader::Read(L" {\"a\" : [1.5e1, true, false, null, \"\\u00e9\\n\"]} ");
    EXPECT_EQ(15, json[L"a"].list.at(0).number);
    EXPECT_TRUE(json[L"a"].list.at(1).truth);
    EXPECT_FALSE(json[L"a"].list.at(2).truth);
    EXPECT_EQ(L"\u00e9\n", json[L"a"].list.at(4).text);
}

TEST(CheckOptions, AreReadInAnyOrder) {
    const Options none = ParseOptions({});
    EXPECT_EQ(Action::Check, none.action);
    EXPECT_FALSE(none.json);
    EXPECT_FALSE(none.language);
    EXPECT_TRUE(none.wrong.empty());
    const Options some = ParseOptions({L"--vi", L"--json"});
    EXPECT_TRUE(some.json);
    EXPECT_EQ(Language::Vietnamese, some.language);
    EXPECT_EQ(Language::English, ParseOptions({L"--en"}).language);
    EXPECT_EQ(Action::Help, ParseOptions({L"--help"}).action);
    EXPECT_EQ(Action::Version, ParseOptions({L"--version"}).action);
    EXPECT_EQ(L"--jsn", ParseOptions({L"--jsn", L"x"}).wrong);
    EXPECT_EQ(L"\"\"", ParseOptions({L""}).wrong);
    EXPECT_EQ(Language::French, ParseOptions({L"--fr"}).language);
}

TEST(CheckOptions, TheConnectionStringIsTheWordBehindItsOption) {
    EXPECT_FALSE(ParseOptions({L"--json"}).connectionString);
    const Options options = ParseOptions({L"--connect", L"--en", L"--json"});
    EXPECT_EQ(L"--en", options.connectionString);
    EXPECT_FALSE(options.language);
    EXPECT_TRUE(options.json);
    EXPECT_EQ(L"--connect", ParseOptions({L"--connect"}).wrong);
}

TEST(CheckOptions, PiecesOfAConnectionStringAreNotRepeated) {
    EXPECT_EQ(L"ID=...", ParseOptions({L"ID=sa;Password=abc"}).wrong);
    EXPECT_EQ(L"--connect \"...\"",
              ParseOptions({L"--connect", L"Provider=x;User", L"abc;d"}).wrong);
}
