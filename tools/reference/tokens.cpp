// SPDX-License-Identifier: MIT
#include "reference/tokens.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>
#include <utility>

namespace reference {

namespace {

bool IsWord(char ch) {
    return std::isalnum(static_cast<unsigned char>(ch)) || ch == '_';
}

class Reader {
public:
    Reader(std::string_view text, std::map<std::string, std::string>& numbers)
        : text_(text), numbers_(numbers) {}

    std::vector<Token> Read() {
        while (at_ < text_.size())
            Step();
        Add(Token::Kind::End, "");
        return std::move(tokens_);
    }

private:
    void Step() {
        const char ch = text_[at_];
        if (ch == '\n')
            ++line_;
        if (std::isspace(static_cast<unsigned char>(ch)))
            ++at_;
        else if (text_.substr(at_, 2) == "//")
            Comment(Line());
        else if (ch == '#')
            Define(Line());
        else if (ch == '"')
            Text();
        else if (IsWord(ch) || (ch == '-' && at_ + 1 < text_.size() && IsWord(text_[at_ + 1])))
            Word();
        else
            Add(Token::Kind::Sign, std::string(1, text_[at_++]));
    }

    std::string Line() {
        const std::size_t end = std::min(text_.find('\n', at_), text_.size());
        std::string line(text_.substr(at_, end - at_));
        at_ = end;
        return line;
    }

    void Comment(const std::string& line) {
        if (!line.starts_with("///"))
            return;
        remarks_.push_back(line.substr(line.starts_with("/// ") ? 4 : 3));
    }

    void Define(const std::string& line) {
        const std::size_t open = line.find('('), close = line.find(')');
        constexpr std::string_view kDefine = "#define ";
        if (line.starts_with(kDefine) && open != std::string::npos && close != std::string::npos)
            numbers_[line.substr(kDefine.size(), open - 1 - kDefine.size())] =
                line.substr(open + 1, close - open - 1);
    }

    void Text() {
        std::string value;
        for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
            if (text_[at_] == '\n')
                throw std::runtime_error("line " + std::to_string(line_) + ": the text has no end");
            if (text_[at_] == '\\')
                ++at_;
            value += text_[at_];
        }
        ++at_;
        Add(Token::Kind::Text, value);
    }

    // Identifiers, numbers, and GUIDs with their dashes.
    void Word() {
        const std::size_t begin = at_++;
        while (at_ < text_.size() && (IsWord(text_[at_]) || text_[at_] == '-' || text_[at_] == '.'))
            ++at_;
        Add(Token::Kind::Word, std::string(text_.substr(begin, at_ - begin)));
    }

    void Add(Token::Kind kind, std::string value) {
        tokens_.push_back({kind, std::move(value), line_, std::move(remarks_)});
        remarks_.clear();
    }

    const std::string_view text_;
    std::map<std::string, std::string>& numbers_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::vector<std::string> remarks_;
    std::vector<Token> tokens_;
};

} // namespace

std::vector<Token> ReadTokens(std::string_view text, std::map<std::string, std::string>& numbers) {
    return Reader(text, numbers).Read();
}

} // namespace reference
