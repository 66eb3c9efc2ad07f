// SPDX-License-Identifier: MIT
// reference IDL FOLDER: writes the pages of the reference into the folder, and takes away what is
// no page of it any more.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "reference/pages.h"

namespace {

void Write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text;
    if (!out.flush())
        throw std::runtime_error("cannot write " + file.string());
}

std::string Read(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

int main(int count, char** arguments) try {
    if (count != 3) {
        std::fputs("usage: reference IDL FOLDER\n", stderr);
        return 2;
    }
    const reference::Pages pages = reference::MakePages(reference::ReadIdl(Read(arguments[1])));
    const std::filesystem::path folder = arguments[2];
    std::filesystem::create_directories(folder);
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".md" && !pages.contains(entry.path().filename().string()))
            std::filesystem::remove(entry.path());
    for (const auto& [name, text] : pages)
        Write(folder / name, text);
    std::printf("%zu pages in %s\n", pages.size(), arguments[2]);
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "reference: %s\n", error.what());
    return 1;
}
