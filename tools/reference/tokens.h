// SPDX-License-Identifier: MIT
// The words of an IDL text, one after the other.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace reference {

struct Token {
    enum class Kind { Word, Text, Sign, End } kind = Kind::End;
    std::string text;
    int line = 0;
    std::vector<std::string> remarks; // the "///" lines right before it
};

// Ordinary comments, import and preprocessor lines are left out; #define NAME (NUMBER) goes to
// `numbers`. The last token is End.
std::vector<Token> ReadTokens(std::string_view text, std::map<std::string, std::string>& numbers);

} // namespace reference
