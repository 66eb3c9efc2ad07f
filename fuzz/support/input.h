// SPDX-License-Identifier: MIT
// The input of one run, taken apart line by line, so that the files of a corpus can be read and
// written by hand. Texts are UTF-8; numbers stand in decimal.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// Ends the run where a property does not hold; the fuzzer then keeps the input.
#define MUST(property)                                                                             \
    do {                                                                                           \
        if (!(property)) {                                                                         \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #property);     \
            std::abort();                                                                          \
        }                                                                                          \
    } while (false)

namespace vndesk::fuzz {

class Input {
public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}

    std::string_view Line();
    // Everything that is left, line ends included.
    std::string_view Bytes();

    std::wstring Text();
    std::wstring RestText();
    // Each byte as one character, as TCVN3 texts are held.
    std::wstring RestCodes();
    // The line's number brought into the range; without one, `low`.
    long Number(long low, long high);
    bool Flag() { return Number(0, 1) != 0; }

private:
    std::string_view rest_;
};

// What a target does with one input.
void RunOne(Input& input);

} // namespace vndesk::fuzz
