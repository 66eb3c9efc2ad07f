// SPDX-License-Identifier: MIT
// A strict reader of JSON (RFC 8259) for tests: text in, a tree out; anything else throws.
// No windows.h: the native tests use it too.
#pragma once

#include <cstdlib>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vndesk::test {

struct Json {
    enum class Type { Null, Bool, Number, Text, List, Object };
    Type type = Type::Null;
    bool truth = false;
    double number = 0;
    std::wstring text;
    std::vector<Json> list;
    std::map<std::wstring, Json> members;

    // Throws when it is no object or has no such member.
    const Json& operator[](const std::wstring& name) const { return members.at(name); }
};

class JsonReader {
public:
    static Json Read(std::wstring_view text) {
        JsonReader reader(text);
        const Json value = reader.Value();
        reader.Blanks();
        if (reader.at_ != text.size())
            reader.Refuse("text after the end");
        return value;
    }

private:
    explicit JsonReader(std::wstring_view text) : text_(text) {}

    [[noreturn]] void Refuse(const char* what) const {
        throw std::runtime_error(std::string("JSON: ") + what + " at " + std::to_string(at_));
    }
    wchar_t Peek() const { return at_ < text_.size() ? text_[at_] : L'\0'; }
    bool Take(wchar_t ch) { return Peek() == ch && at_ < text_.size() && ++at_; }
    void Need(wchar_t ch) {
        if (!Take(ch))
            Refuse("another sign expected");
    }
    void Blanks() {
        while (Peek() == L' ' || Peek() == L'\t' || Peek() == L'\n' || Peek() == L'\r')
            ++at_;
    }
    bool TakeWord(std::wstring_view word) {
        if (text_.substr(at_, word.size()) != word)
            return false;
        at_ += word.size();
        return true;
    }

    Json Value() {
        Blanks();
        Json value;
        if (Peek() == L'"') {
            value.type = Json::Type::Text;
            value.text = Text();
        } else if (Take(L'{')) {
            value.type = Json::Type::Object;
            Members(value);
        } else if (Take(L'[')) {
            value.type = Json::Type::List;
            Elements(value);
        } else if (TakeWord(L"true") || TakeWord(L"false")) {
            value.type = Json::Type::Bool;
            value.truth = text_[at_ - 2] == L'u';
        } else if (!TakeWord(L"null")) {
            value.type = Json::Type::Number;
            value.number = Number();
        }
        return value;
    }

    void Members(Json& object) {
        Blanks();
        if (Take(L'}'))
            return;
        do {
            Blanks();
            const std::wstring name = Text();
            Blanks();
            Need(L':');
            if (!object.members.emplace(name, Value()).second)
                Refuse("a name twice");
            Blanks();
        } while (Take(L','));
        Need(L'}');
    }

    void Elements(Json& list) {
        Blanks();
        if (Take(L']'))
            return;
        do {
            list.list.push_back(Value());
            Blanks();
        } while (Take(L','));
        Need(L']');
    }

    std::wstring Text() {
        Need(L'"');
        std::wstring text;
        for (;;) {
            if (at_ == text_.size() || Peek() < 0x20)
                Refuse("a text without end, or a control character in it");
            if (Take(L'"'))
                return text;
            if (!Take(L'\\')) {
                text += text_[at_++];
                continue;
            }
            constexpr std::wstring_view kSigns = L"\"\\/bfnrt", kMeant = L"\"\\/\b\f\n\r\t";
            const std::size_t known = at_ < text_.size() ? kSigns.find(Peek()) : kSigns.npos;
            if (known != kSigns.npos) {
                text += kMeant[known];
                ++at_;
            } else {
                Need(L'u');
                text += Code();
            }
        }
    }

    wchar_t Code() {
        const std::wstring digits(text_.substr(at_, 4));
        if (digits.size() != 4 ||
            digits.find_first_not_of(L"0123456789abcdefABCDEF") != std::wstring::npos)
            Refuse("four digits expected");
        at_ += 4;
        return static_cast<wchar_t>(std::wcstoul(digits.c_str(), nullptr, 16));
    }

    bool Digits() {
        const std::size_t start = at_;
        while (Peek() >= L'0' && Peek() <= L'9')
            ++at_;
        return at_ > start;
    }

    double Number() {
        const std::size_t start = at_;
        Take(L'-');
        if (!Take(L'0') && !Digits())
            Refuse("a value expected");
        if (Take(L'.') && !Digits())
            Refuse("a digit expected");
        if (Take(L'e') || Take(L'E')) {
            if (!Take(L'+'))
                Take(L'-');
            if (!Digits())
                Refuse("a digit expected");
        }
        return std::wcstod(std::wstring(text_.substr(start, at_ - start)).c_str(), nullptr);
    }

    std::wstring_view text_;
    std::size_t at_ = 0;
};

} // namespace vndesk::test
