// SPDX-License-Identifier: MIT
// docs/troubleshooting.md and vndesk-check know the same findings.
#include "check/findings.h"

#include <gtest/gtest.h>

#include <map>

#include "docs/tree.h"

using namespace vndesk::check;

namespace {

constexpr const char* kStates[] = {"ok", "note", "warning", "error"};

// Section heading, as in "### library-file-missing (error)" -> its text.
std::map<std::string, std::string> Sections() {
    std::map<std::string, std::string> sections;
    std::string current;
    for (const std::string& line :
         docs::Lines(docs::ReadFile(docs::Root() / "docs/troubleshooting.md"))) {
        if (line.rfind("#", 0) == 0)
            current = line.rfind("### ", 0) == 0 ? line.substr(4) : "";
        else if (!current.empty())
            sections[current] += line + "\n";
        if (!current.empty())
            sections[current];
    }
    return sections;
}

} // namespace

TEST(Troubleshooting, HasASectionForEveryFindingAndNoOther) {
    std::map<std::string, std::string> sections = Sections();
    for (std::size_t i = 0; i < kIdCount; ++i) {
        const Kind& kind = KindOf(static_cast<Id>(i));
        const std::wstring name = kind.name;
        const std::string heading = std::string(name.begin(), name.end()) + " (" +
                                    kStates[static_cast<std::size_t>(kind.state)] + ")";
        const auto section = sections.find(heading);
        if (section == sections.end()) {
            ADD_FAILURE() << "no section: ### " << heading;
            continue;
        }
        EXPECT_LT(40u, section->second.size()) << heading << " says next to nothing";
        if (kind.state == State::Error || kind.state == State::Warning) {
            EXPECT_NE(std::string::npos, section->second.find("**To do:**")) << heading;
        }
        sections.erase(section);
    }
    for (const auto& [heading, text] : sections)
        ADD_FAILURE() << "the program never says this: ### " << heading;
}
