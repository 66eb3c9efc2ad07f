// SPDX-License-Identifier: MIT
// The documents point to what is there: files, headings, pictures, members of the classes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "docs/tree.h"
#include "reference/idl.h"

namespace {

namespace fs = std::filesystem;
using docs::RelativeLinks;
using docs::Target;

// The names by which the headings of a page are linked to: lower case, blanks as dashes, without
// signs.
std::set<std::string> Headings(const std::string& prose) {
    std::set<std::string> names;
    std::istringstream lines(prose);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("#"))
            continue;
        std::string name;
        for (char ch : line.substr(line.find_first_not_of("# "))) {
            const auto byte = static_cast<unsigned char>(ch);
            if (ch == ' ')
                name += '-';
            else if (std::isalnum(byte) || ch == '-' || ch == '_' || byte >= 0x80)
                name += static_cast<char>(std::tolower(byte));
        }
        names.insert(name);
    }
    return names;
}

fs::path Resolved(const docs::Page& page, const Target& target) {
    return (target.path.empty() ? page.file : page.file.parent_path() / target.path)
        .lexically_normal();
}

TEST(DocumentTest, LinksLeadToFilesAndHeadings) {
    ASSERT_LT(10u, docs::AllPages().size());
    for (const docs::Page& page : docs::AllPages())
        for (const Target& target : RelativeLinks(page)) {
            const fs::path file = Resolved(page, target);
            EXPECT_TRUE(fs::exists(file)) << page.name << ": " << target.path;
            if (target.heading.empty() || !fs::exists(file))
                continue;
            const auto found = std::find_if(
                docs::AllPages().begin(), docs::AllPages().end(),
                [&](const docs::Page& other) { return other.file.lexically_normal() == file; });
            ASSERT_NE(docs::AllPages().end(), found) << page.name << ": " << target.path;
            EXPECT_TRUE(Headings(found->prose).contains(target.heading))
                << page.name << ": " << found->name << " has no heading #" << target.heading;
        }
}

TEST(DocumentTest, EveryPictureIsShownSomewhere) {
    std::set<fs::path> shown;
    for (const docs::Page& page : docs::AllPages())
        for (const Target& target : RelativeLinks(page))
            shown.insert(Resolved(page, target));
    int pictures = 0;
    for (const auto& entry : fs::directory_iterator(docs::Root() / "docs" / "img")) {
        ++pictures;
        EXPECT_TRUE(shown.contains(entry.path().lexically_normal()))
            << entry.path().filename() << " is in no document";
    }
    EXPECT_LT(20, pictures);
}

// At 96 dpi letters with two marks above look alike; scripts/pictures takes them at 144.
TEST(DocumentTest, PicturesHaveTheResolutionInWhichTonesCanBeRead) {
    // The chunk that holds the pixels per metre, both ways, and the unit.
    const std::string size("pHYs\0\0\x16\x25\0\0\x16\x25\x01", 13);
    for (const auto& entry : fs::directory_iterator(docs::Root() / "docs" / "img"))
        EXPECT_NE(std::string::npos, docs::ReadFile(entry.path()).find(size)) << entry.path();
}

// A reader who starts at docs/README.md finds every document: each folder's own list names its
// pages, and the one above names the folder's list.
TEST(DocumentTest, EveryDocumentIsInTheListOfItsFolder) {
    std::map<fs::path, std::set<fs::path>> linked;
    for (const docs::Page& page : docs::AllPages())
        for (const Target& target : RelativeLinks(page))
            linked[page.file.lexically_normal()].insert(Resolved(page, target));
    const fs::path top = docs::Root() / "docs";
    for (const docs::Page& page : docs::AllPages()) {
        const fs::path file = page.file.lexically_normal();
        const bool isList = file.filename() == "README.md";
        const fs::path folder = isList ? file.parent_path().parent_path() : file.parent_path();
        if (!page.name.starts_with("docs/") || page.name == "docs/README.md")
            continue;
        EXPECT_TRUE(linked[(folder / "README.md").lexically_normal()].contains(file))
            << (folder / "README.md") << " does not name " << page.name;
    }
    EXPECT_TRUE(linked[(docs::Root() / "README.md").lexically_normal()].contains(
        (top / "README.md").lexically_normal()));
}

// --- names of members ---

using Members = std::map<std::string, std::set<std::string>>;

const reference::Library& ProductLibrary() {
    static const reference::Library library =
        reference::ReadIdl(docs::ReadFile(docs::Root() / "src/api/vndesk.idl"));
    return library;
}

Members MembersOfClasses() {
    Members members;
    for (const reference::Type& type : ProductLibrary().types) {
        if (type.kind != "coclass")
            continue;
        for (const std::string& name : {type.defaultInterface, type.events})
            if (const reference::Type* part = ProductLibrary().Find(name))
                for (const reference::Member& member : part->members)
                    members[type.name].insert(member.name);
    }
    return members;
}

// What may stand behind "VnDesk.": types, and the values of enumerations.
std::set<std::string> NamesOfLibrary() {
    std::set<std::string> names = {"dll"}; // Windows does not look at the case of VnDesk.dll
    for (const reference::Type& type : ProductLibrary().types) {
        names.insert(type.name);
        for (const reference::Value& value : type.values)
            names.insert(value.name);
    }
    return names;
}

// In documents and in samples alike: "VnDesk.clsLogon", "clsLogon.ShowLogon".
TEST(DocumentTest, ClassesAndMembersNamedInTextsExist) {
    const Members members = MembersOfClasses();
    const std::set<std::string> names = NamesOfLibrary();
    std::string classes;
    for (const auto& [name, unused] : members)
        classes += (classes.empty() ? "" : "|") + name;
    const std::regex product(R"(\bVnDesk\.(\w+))");
    const std::regex member("\\b(" + classes + R"()\.(\w+))");
    const std::set<std::string> files = {"h", "cpp", "md", "bas", "vbs"};
    int named = 0;
    for (const docs::Page& page : docs::AllPages()) {
        for (std::sregex_iterator at(page.text.begin(), page.text.end(), product), end; at != end;
             ++at) {
            EXPECT_TRUE(names.contains((*at)[1])) << page.name << ": there is no " << at->str();
            ++named;
        }
        for (std::sregex_iterator at(page.text.begin(), page.text.end(), member), end; at != end;
             ++at)
            if (!files.contains((*at)[2])) {
                EXPECT_TRUE(members.at((*at)[1]).contains((*at)[2]))
                    << page.name << ": there is no " << at->str();
                ++named;
            }
    }
    EXPECT_LT(30, named);
}

} // namespace
