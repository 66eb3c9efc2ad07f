// SPDX-License-Identifier: MIT
#include "docs/tree.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace docs {

namespace fs = std::filesystem;

namespace {

// A line without what stands between backquotes.
std::string WithoutSpans(const std::string& line) {
    std::string kept;
    bool inSpan = false;
    for (char ch : line)
        if (ch == '`')
            inSpan = !inSpan;
        else if (!inSpan)
            kept += ch;
    return kept;
}

// Blocks stand between lines of three backquotes.
std::string WithoutCode(const std::string& text) {
    std::istringstream lines(text);
    std::string prose, line;
    for (bool inBlock = false; std::getline(lines, line);) {
        const std::size_t first = line.find_first_not_of(' ');
        if (first != std::string::npos && line.compare(first, 3, "```") == 0)
            inBlock = !inBlock;
        else if (!inBlock)
            prose += WithoutSpans(line) + "\n";
    }
    return prose;
}

bool IsMade(const fs::path& name) {
    return name == "build" || name == "dist" || name == ".git";
}

} // namespace

const fs::path& Root() {
    static const fs::path root = [] {
        const char* given = std::getenv("VNDESK_SOURCE_DIR");
        return fs::path(given ? given : ".");
    }();
    return root;
}

std::string ReadFile(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines(1);
    for (const char ch : text)
        if (ch == '\n')
            lines.emplace_back();
        else if (ch != '\r')
            lines.back() += ch;
    return lines;
}

const std::vector<Page>& AllPages() {
    static const std::vector<Page> pages = [] {
        std::vector<Page> found;
        for (fs::recursive_directory_iterator at(Root()), end; at != end; ++at) {
            if (at.depth() == 0 && IsMade(at->path().filename()))
                at.disable_recursion_pending();
            else if (at->path().extension() == ".md") {
                std::string text = ReadFile(at->path());
                std::string prose = WithoutCode(text);
                found.push_back({at->path(), fs::relative(at->path(), Root()).generic_string(),
                                 std::move(text), std::move(prose)});
            }
        }
        std::sort(found.begin(), found.end(),
                  [](const Page& a, const Page& b) { return a.name < b.name; });
        return found;
    }();
    return pages;
}

std::vector<Target> RelativeLinks(const Page& page) {
    static const std::regex link(R"(\]\(([^)\s]+)\))");
    std::vector<Target> targets;
    for (std::sregex_iterator at(page.prose.begin(), page.prose.end(), link), end; at != end;
         ++at) {
        const std::string target = (*at)[1];
        if (target.find("://") != std::string::npos)
            continue;
        const std::size_t mark = target.find('#');
        targets.push_back(
            {target.substr(0, mark), mark == std::string::npos ? "" : target.substr(mark + 1)});
    }
    return targets;
}

} // namespace docs
