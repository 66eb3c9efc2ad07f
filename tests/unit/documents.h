// SPDX-License-Identifier: MIT
// Texts of the source tree, for tests that keep documents and code together.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace vndesk::test {

// A file of the source tree as it is; the test fails where there is none.
inline std::string ReadSource(const std::string& name) {
    const char* folder = std::getenv("VNDESK_SOURCE_DIR");
    std::ifstream file(std::filesystem::path(folder ? folder : ".") / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name << " below VNDESK_SOURCE_DIR";
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines(1);
    for (const char ch : text)
        if (ch == '\n')
            lines.emplace_back();
        else if (ch != '\r')
            lines.back() += ch;
    return lines;
}

} // namespace vndesk::test
