// SPDX-License-Identifier: MIT
// The layers are those of the table in ARCHITECTURE.md: no include runs up, and no two folders
// include each other.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "docs/tree.h"

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

// A row of the table. Rooms are whole folders, from the roof down; "." is the folder itself.
struct Row {
    std::string folder;
    Names rooms;
    Names includes;
};

bool Has(const Names& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

Names Spans(const std::string& cell) {
    static const std::regex span("`([^`]+)`");
    Names found;
    for (std::sregex_iterator at(cell.begin(), cell.end(), span), end; at != end; ++at)
        found.push_back((*at)[1]);
    return found;
}

// Folders of src/ stand in the table by their names alone.
std::string Whole(const std::string& folder) {
    return folder.find('/') == std::string::npos ? "src/" + folder : folder;
}

const std::string& Layers() {
    static const std::string section = [] {
        const std::string page = docs::ReadFile(docs::Root() / "ARCHITECTURE.md");
        const std::size_t begin = page.find("\n## Layers\n");
        return page.substr(begin, page.find("\n## ", begin + 1) - begin);
    }();
    return section;
}

const std::vector<Row>& Table() {
    static const std::vector<Row> table = [] {
        std::vector<Row> rows;
        for (const std::string& line : docs::Lines(Layers())) {
            if (line.rfind("| `", 0) != 0)
                continue;
            Names cells;
            std::istringstream parts(line);
            for (std::string cell; std::getline(parts, cell, '|');)
                cells.push_back(cell);
            cells.resize(5);
            Row row = {Whole(Spans(cells[1]).front()), {}, {}};
            for (const std::string& room : Spans(cells[3]))
                row.rooms.push_back(room == "." ? row.folder : row.folder + "/" + room);
            if (row.rooms.empty())
                row.rooms = {row.folder};
            for (const std::string& folder : Spans(cells[4]))
                row.includes.push_back(Whole(folder));
            rows.push_back(row);
        }
        return rows;
    }();
    return table;
}

// What the compiler reads of ours: file, with slashes, and the names after #include.
const std::map<std::string, Names>& Sources() {
    static const std::map<std::string, Names> sources = [] {
        static const std::set<std::string> kinds = {".h", ".cpp", ".c", ".rc"};
        static const std::regex include(R"re([ \t]*#[ \t]*include[ \t]*["<]([^">]+)[">].*)re");
        std::map<std::string, Names> found;
        for (const char* top : {"src", "wine", "samples", "tools"})
            for (const auto& entry : fs::recursive_directory_iterator(docs::Root() / top)) {
                if (!kinds.count(entry.path().extension().string()))
                    continue;
                Names& names = found[fs::relative(entry.path(), docs::Root()).generic_string()];
                std::smatch match;
                for (const std::string& line : docs::Lines(docs::ReadFile(entry.path())))
                    if (line.find('#') != line.npos && std::regex_match(line, match, include))
                        names.push_back(match[1]);
            }
        return found;
    }();
    return sources;
}

std::string FolderOf(const std::string& file) {
    return file.substr(0, file.rfind('/'));
}

// The file of the tree that is included; empty for those of the system and of the build.
std::string Included(const std::string& from, const std::string& name) {
    const auto beside = (fs::path(FolderOf(from)) / name).lexically_normal().generic_string();
    for (const std::string& file :
         {beside, "src/" + name, "wine/" + name, "tools/" + name, "samples/tour/" + name})
        if (Sources().count(file))
            return file;
    return {};
}

struct Place {
    const Row* row = nullptr;
    std::size_t room = 0; // 0 is the highest
};

Place PlaceOf(const std::string& file) {
    for (const Row& row : Table()) {
        const auto room = std::find(row.rooms.begin(), row.rooms.end(), FolderOf(file));
        if (room != row.rooms.end())
            return {&row, static_cast<std::size_t>(room - row.rooms.begin())};
    }
    return {};
}

template <class Visit> void ForEachInclude(Visit visit) {
    for (const auto& [file, names] : Sources())
        for (const std::string& name : names)
            if (const std::string included = Included(file, name); !included.empty())
                visit(file, name, included);
}

TEST(LayersTest, TableHasEveryFolderWithSourcesAndNoOther) {
    EXPECT_LT(10u, Table().size());
    std::set<std::string> folders, rooms;
    for (const auto& [file, names] : Sources())
        folders.insert(FolderOf(file));
    for (const Row& row : Table())
        rooms.insert(row.rooms.begin(), row.rooms.end());
    EXPECT_EQ(rooms, folders);
}

TEST(LayersTest, FoldersIncludeOnlyLowerRowsOfTheTable) {
    for (std::size_t i = 0; i < Table().size(); ++i)
        for (const std::string& included : Table()[i].includes)
            EXPECT_TRUE(std::any_of(Table().begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                    Table().end(),
                                    [&](const Row& lower) { return lower.folder == included; }))
                << Table()[i].folder << " includes " << included << ", which is not below it";
}

TEST(LayersTest, NoIncludeRunsUp) {
    int seen = 0;
    ForEachInclude([&](const std::string& file, const std::string&, const std::string& included) {
        const Place from = PlaceOf(file), to = PlaceOf(included);
        if (!from.row || !to.row)
            return; // told by the table's own test
        ++seen;
        if (from.row == to.row) {
            EXPECT_LE(from.room, to.room) << file << " includes " << included;
            return;
        }
        EXPECT_TRUE(Has(from.row->includes, to.row->folder)) << file << " includes " << included;
    });
    EXPECT_LT(500, seen);
}

// An arrow that nobody needs any more would let others in.
TEST(LayersTest, EveryArrowOfTheTableIsUsed) {
    std::set<std::pair<std::string, std::string>> used;
    ForEachInclude([&](const std::string& file, const std::string&, const std::string& included) {
        const Place from = PlaceOf(file), to = PlaceOf(included);
        if (from.row && to.row)
            used.insert({from.row->folder, to.row->folder});
    });
    for (const Row& row : Table())
        for (const std::string& included : row.includes)
            EXPECT_TRUE(used.count({row.folder, included})) << row.folder << " -> " << included;
}

// The picture leaves out arrows to what is reached in steps, and shows no others.
TEST(LayersTest, PictureShowsTheArrowsOfTheTable) {
    std::map<std::string, std::set<std::string>> reached;
    static const std::regex arrows("\n +(\\w+) --> ([\\w &]+)"), word("\\w+");
    const std::string& text = Layers();
    for (std::sregex_iterator at(text.begin(), text.end(), arrows), end; at != end; ++at) {
        const std::string targets = (*at)[2];
        for (std::sregex_iterator to(targets.begin(), targets.end(), word); to != end; ++to)
            reached[Whole((*at)[1])].insert(Whole(to->str()));
    }
    for (const Row& row : Table())
        for (const std::string& drawn : reached[row.folder])
            EXPECT_TRUE(Has(row.includes, drawn))
                << row.folder << " --> " << drawn << " is drawn and not in the table";
    // From the ground up: what a folder reaches is what it points to, and what these reach.
    for (auto row = Table().rbegin(); row != Table().rend(); ++row) {
        std::set<std::string>& all = reached[row->folder];
        for (const std::string& next : std::set<std::string>(all))
            all.insert(reached[next].begin(), reached[next].end());
        if (row->folder.rfind("src/", 0) == 0)
            for (const std::string& included : row->includes)
                EXPECT_TRUE(all.count(included)) << row->folder << " --> " << included;
    }
}

// One way to name a header, so that a move is found by its path. Samples are compiled by hand too,
// without folders to look in.
TEST(LayersTest, HeadersAreNamedByTheirPath) {
    ForEachInclude(
        [](const std::string& file, const std::string& name, const std::string& included) {
            if (file.rfind("samples/", 0) != 0) {
                EXPECT_EQ(included.substr(included.find('/') + 1), name) << file;
            }
        });
}

// A sample is read file by file: what a file includes does not include it, straight or through
// others.
TEST(LayersTest, FilesOfASampleDoNotIncludeEachOther) {
    std::map<std::string, std::set<std::string>> reached;
    const auto unit = [](const std::string& file) { return file.substr(0, file.rfind('.')); };
    ForEachInclude([&](const std::string& file, const std::string&, const std::string& included) {
        if (file.rfind("samples/", 0) == 0 && unit(file) != unit(included))
            reached[unit(file)].insert(unit(included));
    });
    EXPECT_LT(5u, reached.size());
    for (bool grew = true; grew;) {
        grew = false;
        for (auto& [from, to] : reached)
            for (const std::string& next : std::set<std::string>(to))
                for (const std::string& further : reached[next])
                    grew |= to.insert(further).second;
    }
    for (const auto& [from, to] : reached)
        EXPECT_FALSE(to.count(from)) << from << " includes itself through others";
}

} // namespace
