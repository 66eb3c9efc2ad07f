// SPDX-License-Identifier: MIT
// The documents as the setup program brings them: what they point to, it brings too.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include "docs/tree.h"

namespace {

namespace fs = std::filesystem;

// Where a file of the sources goes, below the folder of the installation.
struct Installed {
    std::string component;
    fs::path place;
};
using Contents = std::multimap<fs::path, Installed>;

void Add(Contents& contents, const std::string& component, const fs::path& source,
         const fs::path& folder) {
    const fs::path path = docs::Root() / source;
    contents.insert({source, {component, (folder / source.filename()).lexically_normal()}});
    if (fs::is_directory(path))
        for (const auto& entry : fs::directory_iterator(path))
            Add(contents, component, source / entry.path().filename(), folder / source.filename());
}

// installer/contents.txt; a pattern stands for the files that are there.
const Contents& InstalledFiles() {
    static const Contents contents = [] {
        Contents found;
        std::istringstream lines(docs::ReadFile(docs::Root() / "installer/contents.txt"));
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string component, source, folder;
            if (!(words >> component >> source >> folder) || component.starts_with("#"))
                continue;
            const std::size_t star = source.find('*');
            if (star == std::string::npos) {
                Add(found, component, source, folder);
                continue;
            }
            const fs::path parent = fs::path(source).parent_path();
            const std::string start = fs::path(source.substr(0, star)).filename().string();
            if (fs::exists(docs::Root() / parent)) // what is built is not there in every tree
                for (const auto& entry : fs::directory_iterator(docs::Root() / parent))
                    if (entry.path().filename().string().starts_with(start))
                        Add(found, component, parent / entry.path().filename(), folder);
        }
        return found;
    }();
    return contents;
}

// What is there when only some components have been chosen; the library always is.
bool Comes(const fs::path& place, const std::string& component) {
    return std::any_of(InstalledFiles().begin(), InstalledFiles().end(), [&](const auto& item) {
        return (item.second.component == component || item.second.component == "library") &&
               (item.second.place == place ||
                item.second.place.generic_string().starts_with(place.generic_string() + "/"));
    });
}

TEST(InstalledDocumentTest, LinksLeadToWhatTheSetupBrings) {
    int pages = 0, links = 0;
    for (const docs::Page& page : docs::AllPages()) {
        const auto [begin, end] = InstalledFiles().equal_range(page.name);
        for (auto at = begin; at != end; ++at, ++pages)
            for (const docs::Target& target : docs::RelativeLinks(page)) {
                if (target.path.empty())
                    continue;
                const fs::path place =
                    (at->second.place.parent_path() / target.path).lexically_normal();
                const std::string name = place.generic_string();
                EXPECT_TRUE(
                    Comes(name.ends_with('/') ? place.parent_path() : place, at->second.component))
                    << at->second.place << ": " << target.path;
                ++links;
            }
    }
    EXPECT_LT(30, pages);
    EXPECT_LT(200, links);
}

// The page offers the files of the conversion to be taken over: all that they include comes.
TEST(InstalledDocumentTest, FilesThatAPageOffersAreComplete) {
    std::set<fs::path> includes;
    for (const auto& [source, installed] : InstalledFiles())
        if (source.generic_string().starts_with("src/text/")) {
            std::istringstream lines(docs::ReadFile(docs::Root() / source));
            for (std::string line; std::getline(lines, line);)
                if (line.starts_with("#include \"")) {
                    const std::size_t begin = line.find('"') + 1;
                    includes.insert("src" / fs::path(line.substr(begin, line.rfind('"') - begin)));
                }
        }
    EXPECT_LT(1u, includes.size());
    for (const fs::path& include : includes)
        EXPECT_TRUE(InstalledFiles().contains(include)) << include;
}

} // namespace
