// SPDX-License-Identifier: MIT
// The pages for beginners quote the samples: what they show is what stands there. The samples'
// files have the form that their languages' tools read.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "docs/tree.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// Without indentation and line ends: a page moves what it quotes to the left.
Lines Trimmed(const std::string& text) {
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        const size_t first = line.find_first_not_of(" \t\r"), last = line.find_last_not_of(" \t\r");
        lines.push_back(first == std::string::npos ? "" : line.substr(first, last - first + 1));
    }
    return lines;
}

// The blocks of a page that are written in a language.
std::vector<Lines> Blocks(const fs::path& page, const std::string& language) {
    std::vector<Lines> blocks;
    bool inside = false;
    for (const std::string& line : Trimmed(docs::ReadFile(page))) {
        if (line.starts_with("```")) {
            inside = !inside && line == "```" + language;
            if (inside)
                blocks.emplace_back();
        } else if (inside) {
            blocks.back().push_back(line);
        }
    }
    return blocks;
}

bool Contains(const Lines& file, const Lines& block) {
    return std::search(file.begin(), file.end(), block.begin(), block.end()) != file.end();
}

std::string Text(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

struct Page {
    const char* name;
    const char* language; // of its quotations
    std::vector<const char*> files;
};

const Page kPages[] = {
    {"vbscript", "vb", {"vbscript/host.vbs"}},
    {"jscript", "js", {"jscript/host.js"}},
    {"vb6", "vb", {"vb6/frmMain.frm", "vb6/modRights.bas"}},
    {"vba", "vb", {"vba/VnDeskHost.bas"}},
    {"cpp", "cpp", {"cpp/host.cpp"}},
    {"powershell", "powershell", {"powershell/host.ps1"}},
    {"csharp", "csharp", {"csharp/Program.cs"}},
    {"delphi", "pascal", {"delphi/VnHost.dpr"}},
    {"vi", "vb", {"vbscript/host.vbs"}},
};

TEST(GettingStarted, PagesQuoteTheSamplesFiveStepsAsTheyAre) {
    for (const Page& page : kPages) {
        const fs::path path =
            docs::Root() / "docs/getting-started" / (std::string(page.name) + ".md");
        const auto blocks = Blocks(path, page.language);
        EXPECT_GE(blocks.size(), 5u) << path;
        for (const Lines& block : blocks)
            EXPECT_TRUE(std::any_of(
                page.files.begin(), page.files.end(),
                [&](const char* file) {
                    return Contains(Trimmed(docs::ReadFile(docs::Root() / "samples" / file)),
                                    block);
                }))
                << path << " quotes what its sample does not have:\n"
                << Text(block);
    }
}

TEST(GettingStarted, EachPageIsInTheIndex) {
    const std::string index = docs::ReadFile(docs::Root() / "docs/getting-started/README.md");
    for (const Page& page : kPages)
        EXPECT_NE(std::string::npos, index.find("(" + std::string(page.name) + ".md)"))
            << page.name;
}

// Visual Basic, the script host and older PowerShells take bytes for letters of the system's code
// page.
TEST(Samples, FilesOfToolsWithCodePagesAreAscii) {
    for (const char* file :
         {"vb6/frmMain.frm", "vb6/modRights.bas", "vb6/VnHost.vbp", "vba/VnDeskHost.bas",
          "vbscript/host.vbs", "jscript/host.js", "powershell/host.ps1", "start.cmd"}) {
        const std::string text = docs::ReadFile(docs::Root() / "samples" / file);
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](unsigned char c) { return c < 127; }))
            << file;
    }
}

TEST(Samples, FilesOfVisualBasicHaveTheLineEndsOfWindows) {
    for (const char* file : {"vb6/frmMain.frm", "vb6/modRights.bas", "vb6/VnHost.vbp",
                             "vba/VnDeskHost.bas", "start.cmd"}) {
        const std::string text = docs::ReadFile(docs::Root() / "samples" / file);
        for (size_t i = text.find('\n'); i != std::string::npos; i = text.find('\n', i + 1))
            ASSERT_TRUE(i > 0 && text[i - 1] == '\r') << file;
    }
}

// A message of the samples in every language is the same TCVN3 text.
TEST(Samples, PrintTheSameLinesInEveryLanguage) {
    const char* const files[] = {"vbscript/host.vbs", "jscript/host.js",    "cpp/host.cpp",
                                 "vb6/frmMain.frm",   "vba/VnDeskHost.bas", "powershell/host.ps1",
                                 "csharp/Program.cs", "delphi/VnHost.dpr"};
    for (const char* file : files) {
        const std::string text = docs::ReadFile(docs::Root() / "samples" / file);
        size_t place = 0;
        for (const char* line :
             {"1. Logon", "nobody has logged on", "user ", "2. Rights", "3. Administration",
              "user list closed", "group manager closed", "4. Search"}) {
            const size_t found = text.find(line, place);
            EXPECT_NE(std::string::npos, found) << file << " does not print " << line;
            place = found == std::string::npos ? place : found;
        }
        for (const char* line : {"   cancelled", "5. Message", "   yes", "   no", " rows"})
            EXPECT_NE(std::string::npos, text.find(line)) << file << " does not print " << line;
    }
}

} // namespace
