// SPDX-License-Identifier: MIT
#include "text/sql_lexer.h"

#include <cstddef>

namespace vndesk {

namespace {

constexpr std::size_t kNone = std::wstring_view::npos;

bool IsSpace(wchar_t ch) {
    return ch == L' ' || (ch >= L'\t' && ch <= L'\r') || ch == 0xA0;
}

bool IsDigit(wchar_t ch) {
    return ch >= L'0' && ch <= L'9';
}

bool IsLetter(wchar_t ch) {
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') || ch == L'_' || ch > 0xA0;
}

class Lexer {
public:
    explicit Lexer(std::wstring_view text) : text_(text) {}

    std::vector<Token> Run() {
        while (position_ < text_.size())
            ReadOne();
        return std::move(tokens_);
    }

private:
    wchar_t At(std::size_t offset) const {
        return position_ + offset < text_.size() ? text_[position_ + offset] : L'\0';
    }

    void Add(TokenKind kind, std::size_t length) {
        tokens_.push_back({kind, text_.substr(position_, length)});
        position_ += length;
    }

    void ReadOne() {
        const wchar_t first = At(0);
        if (IsSpace(first) || (first == L'-' && At(1) == L'-') || (first == L'/' && At(1) == L'*'))
            return ReadSpace();
        if ((first == L'N' || first == L'n') && At(1) == L'\'')
            return ReadEnclosed(TokenKind::NationalText, 1, L'\'');
        if (IsWordPart(first))
            return ReadWord();
        switch (first) {
        case L'\'':
            return ReadEnclosed(TokenKind::Text, 0, L'\'');
        case L'"':
        case L'`':
            return ReadEnclosed(TokenKind::Quoted, 0, first);
        case L'[':
            return ReadEnclosed(TokenKind::Bracketed, 0, L']');
        case L'#':
            return ReadDate();
        default:
            return Add(TokenKind::Symbol, 1);
        }
    }

    void ReadSpace() {
        std::size_t length = 0;
        if (At(0) == L'-') {
            while (position_ + length < text_.size() && At(length) != L'\n')
                ++length;
        } else if (At(0) == L'/') {
            const std::size_t end = text_.find(L"*/", position_ + 2);
            length = end == kNone ? text_.size() - position_ : end + 2 - position_;
        } else {
            while (IsSpace(At(length)))
                ++length;
        }
        Add(TokenKind::Space, length);
    }

    void ReadWord() {
        std::size_t length = 1;
        while (IsWordPart(At(length)))
            ++length;
        Add(TokenKind::Word, length);
    }

    // A doubled closing character stands for itself.
    void ReadEnclosed(TokenKind kind, std::size_t opening, wchar_t closing) {
        std::size_t end = position_ + opening + 1;
        for (;;) {
            end = text_.find(closing, end);
            if (end == kNone)
                return Add(TokenKind::Unclosed, text_.size() - position_);
            if (end + 1 >= text_.size() || text_[end + 1] != closing)
                break;
            end += 2;
        }
        Add(kind, end + 1 - position_);
    }

    void ReadDate() {
        const std::size_t end = text_.find(L'#', position_ + 1);
        const std::wstring_view inner =
            end == kNone ? std::wstring_view() : text_.substr(position_ + 1, end - position_ - 1);
        bool digits = false;
        for (const wchar_t ch : inner) {
            digits = digits || IsDigit(ch);
            if (!IsDigit(ch) && std::wstring_view(L"/-.: AaPpMm").find(ch) == kNone)
                return Add(TokenKind::Symbol, 1);
        }
        Add(digits ? TokenKind::Date : TokenKind::Symbol, digits ? inner.size() + 2 : 1);
    }

    std::wstring_view text_;
    std::size_t position_ = 0;
    std::vector<Token> tokens_;
};

} // namespace

bool IsWordPart(wchar_t ch) {
    return IsLetter(ch) || IsDigit(ch) || ch == L'$' || ch == L'@';
}

std::vector<Token> ReadTokens(std::wstring_view statement) {
    return Lexer(statement).Run();
}

} // namespace vndesk
