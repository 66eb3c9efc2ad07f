// SPDX-License-Identifier: MIT
// The documents of the source tree, as its reader finds them.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace docs {

// The folder of the sources.
const std::filesystem::path& Root();

std::string ReadFile(const std::filesystem::path& file);
// Without their ends.
std::vector<std::string> Lines(const std::string& text);

struct Page {
    std::filesystem::path file;
    std::string name; // relative to the root, with slashes
    std::string text;
    std::string prose; // the text without code, in lines or in blocks
};

// Every Markdown file of the project; what builds make is not part of it.
const std::vector<Page>& AllPages();

struct Target {
    std::string path; // empty for the page itself
    std::string heading;
};

// The targets of [text](target) that are no addresses on the net.
std::vector<Target> RelativeLinks(const Page& page);

} // namespace docs
