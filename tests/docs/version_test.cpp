// SPDX-License-Identifier: MIT
// The version stands in project() of CMakeLists.txt; what is written by hand elsewhere agrees with
// it.
#include <gtest/gtest.h>

#include "docs/tree.h"
#include "vndesk_version.h"

namespace {

// The text between two marks; empty where they are not.
std::string Between(const std::string& text, const std::string& before, const std::string& after) {
    const std::size_t at = text.find(before);
    if (at == std::string::npos)
        return {};
    const std::size_t start = at + before.size();
    return text.substr(start, text.find(after, start) - start);
}

} // namespace

TEST(Version, IsTheSameInTheProjectTheTypeLibraryAndTheChanges) {
    const std::string version = VNDESK_SHORT_VERSION, interfaces = VNDESK_INTERFACE_VERSION;
    EXPECT_EQ(version, Between(docs::ReadFile(docs::Root() / "CMakeLists.txt"),
                               "project(VnDesk VERSION ", " "));
    const std::string idl = docs::ReadFile(docs::Root() / "src/api/vndesk.idl");
    EXPECT_EQ(interfaces, Between(idl, "version(", ")"));
    EXPECT_EQ(interfaces, Between(idl, "helpstring(\"VnDesk ", ":"));
    // The newest entry comes first; a date or a word may follow.
    const std::string newest =
        Between(docs::ReadFile(docs::Root() / "CHANGELOG.md"), "\n## ", "\n");
    EXPECT_EQ(version, newest.substr(0, newest.find_first_of(", ")));
    EXPECT_EQ(interfaces,
              Between(docs::ReadFile(docs::Root() / "README.md"), "reference to \"VnDesk ", "\""));
    EXPECT_EQ(version,
              Between(docs::ReadFile(docs::Root() / "README.md"), "dist/vndesk-", "-setup.exe"));
    EXPECT_EQ(version + ".0", VNDESK_VERSION);
    EXPECT_EQ(0u, version.find(interfaces + "."));
}

TEST(Version, IsWrittenIntoNoResourceByHand) {
    for (const char* resource :
         {"src/api/vndesk.rc", "wine/ado/adobridge.rc", "tools/check/check.rc"})
        for (const std::string& line : docs::Lines(docs::ReadFile(docs::Root() / resource)))
            if (line.find("VERSION ") == 0 || line.find("FILEVERSION") == 0 ||
                line.find("PRODUCTVERSION") == 0 || line.find("\"FileVersion\"") != line.npos ||
                line.find("\"ProductVersion\"") != line.npos) {
                EXPECT_NE(std::string::npos, line.find("VNDESK_")) << resource << ": " << line;
            }
}
