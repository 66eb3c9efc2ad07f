// SPDX-License-Identifier: MIT
// The reference says what the IDL says, and the IDL says something of everything.
#include "reference/pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "docs/tree.h"

using namespace reference;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Library& ProductLibrary() {
    static const Library library = ReadIdl(docs::ReadFile(docs::Root() / "src/api/vndesk.idl"));
    return library;
}

std::filesystem::path PagesFolder() {
    return docs::Root() / "docs" / "reference";
}

// --- the committed pages ---

TEST(ReferenceTest, CommittedPagesAreThoseOfTheIdl) {
    for (const auto& [name, text] : MakePages(ProductLibrary()))
        EXPECT_TRUE(docs::ReadFile(PagesFolder() / name) == text)
            << "docs/reference/" << name << " is not what the IDL says: run make reference";
}

TEST(ReferenceTest, NoPageIsLeftOver) {
    const Pages pages = MakePages(ProductLibrary());
    for (const auto& entry : std::filesystem::directory_iterator(PagesFolder()))
        EXPECT_TRUE(pages.contains(entry.path().filename().string())) << entry.path();
}

TEST(ReferenceTest, NothingIsWithoutADescription) {
    EXPECT_THAT(Undescribed(ProductLibrary()), IsEmpty());
}

// Far fewer would mean that the reader passes over something.
TEST(ReferenceTest, ReadsEveryDeclarationOfTheIdl) {
    const std::string idl = docs::ReadFile(docs::Root() / "src/api/vndesk.idl");
    const auto count = [&](const std::string& word) {
        int found = 0;
        for (std::size_t at = idl.find(word); at != std::string::npos; at = idl.find(word, at + 1))
            ++found;
        return found;
    };
    int members = 0, classes = 0;
    for (const Type& type : ProductLibrary().types) {
        classes += type.kind == "coclass";
        for (const Member& member : type.members)
            if (member.interface == type.name)
                members += static_cast<int>(member.accessors.size());
    }
    EXPECT_EQ(count("[id(") + count(", id("), members);
    EXPECT_EQ(count("    coclass "), classes);
    EXPECT_LT(80, members);
}

// --- the reader, on a small text ---

constexpr char kSmall[] = R"(
// A comment, "with a quote.
import "oaidl.idl";
#ifdef __WIDL__
typedef [public] DWORD OLE_COLOR;
#endif
cpp_quote("typedef OLE_COLOR Colour;")
#define DISPID_TEXT (-517)
/// About the library.
[uuid(2BA567DE-7EA1-46BE-9EC1-167F911FFAEF), version(1.0), helpstring("A library")]
library Small
{
    importlib("stdole2.tlb");
    typedef [uuid(88C14212-A7DE-4B1E-932F-ED47CCACD468), helpstring("Sizes. big: large. tiny: small.")]
    enum Sizes { big = 1, tiny = 0x80000002 } Sizes;
    [object, dual, uuid(285B6855-94FD-4438-994D-74236EF28704), helpstring("Things")]
    interface IThing : IDispatch
    {
        /// First paragraph.
        ///
        /// Second one.
        /// Error 5: the name is empty,
        ///     or too long.
        /// Error 0x80070057: never.
        [id(1), helpstring("Looks. Result: what it saw. Name: its \"name\". Key: where. How: the size.")]
        HRESULT Look([in, out] BSTR* Name, [in] long Key, [in, optional] VARIANT How,
                     [out, retval] long* Seen);
        [id(DISPID_TEXT), propget, helpstring("The text. Value: any.")]
        HRESULT Text([out, retval] BSTR* Value);
        [id(DISPID_TEXT), propput, helpstring("The text. Value: any.")]
        HRESULT Text([in] BSTR Value);
    };
    [uuid(D44B3107-1933-4041-8630-5AA4026DA7CF), helpstring("A thing")]
    coclass Thing { [default] interface IThing; };
};
)";

TEST(IdlReaderTest, ReadsMembersWithTheirAccessors) {
    const Library library = ReadIdl(kSmall);
    EXPECT_EQ("Small", library.name);
    EXPECT_EQ("About the library.", library.remarks.text);
    const Type& thing = *library.Find("IThing");
    ASSERT_EQ(2u, thing.members.size());
    EXPECT_FALSE(thing.members[0].IsProperty());
    EXPECT_EQ(3u, thing.members[0].Arguments().size());
    EXPECT_EQ("Seen", thing.members[0].Result()->name);
    EXPECT_TRUE(thing.members[1].Has("propput"));
    EXPECT_EQ("IThing", library.Find("Thing")->defaultInterface);
}

TEST(IdlReaderTest, TakesHelpTextsApart) {
    const Library library = ReadIdl(kSmall);
    const Member& look = library.Find("IThing")->members[0];
    EXPECT_EQ("Looks.", look.help.summary);
    EXPECT_EQ("its \"name\".", look.help.parts.at("Name"));
    EXPECT_EQ("what it saw.", look.help.parts.at("Result"));
    EXPECT_EQ("First paragraph.\n\nSecond one.", look.remarks.text);
    ASSERT_EQ(2u, look.remarks.errors.size());
    EXPECT_EQ("the name is empty, or too long.", look.remarks.errors[0].when);
    EXPECT_EQ("0x80070057", look.remarks.errors[1].number);
    EXPECT_EQ("small.", library.Find("Sizes")->help.parts.at("tiny"));
}

TEST(IdlReaderTest, WritesErrorsForBothKindsOfHosts) {
    const std::string page = MakePages(ReadIdl(kSmall)).at("Thing.md");
    EXPECT_THAT(page, testing::HasSubstr("| 5 | `0x800A0005` | the name is empty, or too long. |"));
    EXPECT_THAT(page, testing::HasSubstr("| 5 | `0x80070057` | never. |"));
    EXPECT_THAT(page, testing::HasSubstr("Function Look(Name As String, ByVal Key As Long, "
                                         "Optional ByVal How As Variant) As Long"));
    EXPECT_THAT(page, testing::HasSubstr("HRESULT put_Text(BSTR Value);"));
}

TEST(IdlReaderTest, InterfaceHasTheMembersOfTheOneItInherits) {
    std::string idl = kSmall;
    idl.insert(
        idl.find("    [uuid(D44B3107"),
        "    /// Since 1.1.\n"
        "    [object, uuid(285B6855-94FD-4438-994D-74236EF28705), helpstring(\"More things\")]\n"
        "    interface IThing2 : IThing\n    {\n"
        "        [id(2), helpstring(\"Goes. Other: where.\")]\n        HRESULT Go([in] IThing2* "
        "Other);\n"
        "    };\n");
    idl.replace(idl.find("interface IThing; }"), 17, "interface IThing2; interface IThing;");
    const Library library = ReadIdl(idl);
    ASSERT_EQ(3u, library.Find("IThing2")->members.size());
    EXPECT_EQ("Look", library.Find("IThing2")->members[0].name);
    EXPECT_EQ("Go", library.Find("IThing2")->members[2].name);
    EXPECT_EQ(2u, library.Find("IThing")->members.size());
    EXPECT_EQ("IThing", library.Find("Thing")->answers.at(0));
    const std::string page = MakePages(library).at("Thing.md");
    EXPECT_THAT(page, testing::HasSubstr("HRESULT Go(IThing2* Other);"));
    EXPECT_THAT(page, testing::HasSubstr("Sub Go(ByVal Other As Thing)"));
    EXPECT_THAT(page, testing::HasSubstr("| `Other` | [Thing](Thing.md) | by value | where. |"));
    EXPECT_THAT(page, testing::HasSubstr("| [Look](#look) | method | Looks. |"));
    EXPECT_THAT(page, testing::HasSubstr("| [Go](#go) | method, since 1.1 | Goes. |"));
    EXPECT_THAT(page, testing::HasSubstr("Since 1.1: `IThing2`."));
    EXPECT_THAT(page, testing::HasSubstr("{285B6855-94FD-4438-994D-74236EF28705}`, since 1.1 |"));
    EXPECT_THAT(page, testing::HasSubstr("| answered too | `IThing`, dual, "
                                         "`{285B6855-94FD-4438-994D-74236EF28704}` |"));
    idl.replace(idl.find(": IThing\n"), 8, ": INothing");
    EXPECT_THROW(ReadIdl(idl), std::runtime_error);
}

TEST(IdlReaderTest, NamesWhatIsWithoutADescription) {
    std::string idl = kSmall;
    const auto without = [&](const std::string& part) {
        std::string text = idl;
        text.erase(text.find(part), part.size());
        return Undescribed(ReadIdl(text));
    };
    EXPECT_THAT(Undescribed(ReadIdl(idl)), ElementsAre("Thing (remarks)"));
    idl.insert(idl.find("    [uuid(D44B"), "/// A class.\n");
    EXPECT_THAT(Undescribed(ReadIdl(idl)), IsEmpty());
    EXPECT_THAT(without(" Key: where."), ElementsAre("IThing.Look.Key"));
    EXPECT_THAT(without("Result: what it saw. "), ElementsAre("IThing.Look (result)"));
    EXPECT_THAT(without(" tiny: small."), ElementsAre("Sizes.tiny"));
}

TEST(IdlReaderTest, RefusesWhatItDoesNotKnow) {
    std::string idl = kSmall;
    idl.insert(idl.find("    [uuid(D44B"), "    module Other { };\n");
    EXPECT_THROW(ReadIdl(idl), std::runtime_error);
    EXPECT_THROW(ReadIdl("[uuid(1)] library Cut {"), std::runtime_error);
}

} // namespace
