// SPDX-License-Identifier: MIT
// What Vietnamese input methods send while "Nguyễn Thị Hương" is typed. They sit in front of the
// keyboard: letters pass, and where one changes what stands before it they swallow it, delete and
// write anew.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vndesk::test {

struct TypingStream {
    const char* name;
    // A letter is a key that passes, '<' a Backspace; what stands in braces has no key.
    const wchar_t* sent;
};

inline constexpr wchar_t kTypedName[] = L"Nguyễn Thị Hương";

inline constexpr TypingStream kTypingStreams[] = {
    // Nguyeenx Thij Huowng
    {"Telex", L"Nguye<{ê}n<<{ễn} Thi<{ị} Huo<{ơ}<<{ươn}g"},
    // Nguyeexn Thij Huwowng: each mark at its letter
    {"TelexAtTheLetter", L"Nguye<{ê}<{ễ}n Thi<{ị} Hu<{ư}o<{ơ}ng"},
    // Nguyen64 Thi5 Huong7: marks behind the word
    {"Vni", L"Nguyen<<{ên}<<{ễn} Thi<{ị} Huong<<<<{ương}"},
    // Telex of a program that first ends the box's own completion with a letter of no width, and
    // takes that back, too
    {"TelexAgainstCompletion",
     L"Nguye{\u202F}<<{ê}n{\u202F}<<<{ễn} Thi{\u202F}<<{ị} Huo{\u202F}<<{ơ}{\u202F}<<<{ươn}g"},
};

inline void PrintTo(const TypingStream& stream, std::ostream* out) {
    *out << stream.name;
}

struct Stroke {
    enum Kind { Key, Backspace, Packet } kind;
    wchar_t character;
};

inline std::vector<Stroke> StrokesOf(const TypingStream& stream) {
    std::vector<Stroke> strokes;
    bool packets = false;
    for (const wchar_t c : std::wstring_view(stream.sent)) {
        if (c == L'{' || c == L'}')
            packets = c == L'{';
        else if (c == L'<')
            strokes.push_back({Stroke::Backspace, L'\b'});
        else
            strokes.push_back({packets ? Stroke::Packet : Stroke::Key, c});
    }
    return strokes;
}

} // namespace vndesk::test
