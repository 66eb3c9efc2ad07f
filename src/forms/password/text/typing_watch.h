// SPDX-License-Identifier: MIT
// Tells an input method from a keyboard by the keys and characters that arrive in a box. Programs
// like UniKey take letters back and send others: a Backspace, and at once characters that no key
// has sent.
#pragma once

#include <cstdint>

namespace vndesk {

// What is to be done with a character.
enum class Typed {
    Taken,
    // It begins to delete: the text as it is now may have to come back.
    FirstBackspace,
    // Of an input method; the box stays as it is.
    Refused,
    // The same, and the text is that before the Backspaces again.
    TakenBack
};

class TypingWatch {
public:
    // Times are milliseconds since any moment.
    using Time = std::uint32_t;

    // A key that brings a character. VK_PACKET does, too, but no key sends it.
    void KeyDown(bool isPacket, Time time) noexcept;
    Typed Character(wchar_t character, Time time) noexcept;
    // Whether what is pasted follows a Backspace faster than a hand can.
    bool PasteFollowsBackspace(Time time) const noexcept { return command_ || IsAtOnce(time); }

private:
    enum class Source { Nothing, Packet, Key };

    bool IsAtOnce(Time time) const noexcept;

    Source source_ = Source::Nothing; // of the next character
    Time keyTime_ = 0;
    bool deleting_ = false;
    Time deleted_ = 0;     // the last Backspace, or what came at once after it
    bool command_ = false; // such as Ctrl+V, and at once
};

} // namespace vndesk
