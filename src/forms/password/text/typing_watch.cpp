// SPDX-License-Identifier: MIT
#include "forms/password/text/typing_watch.h"

#include <cstdlib>
#include <utility>

namespace vndesk {

namespace {

constexpr std::int32_t kAtOnce = 30; // milliseconds
constexpr wchar_t kBackspace = 8;
constexpr wchar_t kFirstPrinted = 32;
constexpr wchar_t kFirstForeign = 0x80;

} // namespace

void TypingWatch::KeyDown(bool isPacket, Time time) noexcept {
    source_ = isPacket ? Source::Packet : Source::Key;
    keyTime_ = time;
}

// Clocks of posted and of typed messages may differ a little, in either direction.
bool TypingWatch::IsAtOnce(Time time) const noexcept {
    return deleting_ && std::abs(static_cast<std::int32_t>(time - deleted_)) <= kAtOnce;
}

Typed TypingWatch::Character(wchar_t character, Time time) noexcept {
    const Source source = std::exchange(source_, Source::Nothing);
    // A busy program takes characters late; the key knows when it was pressed.
    const Time when = source == Source::Nothing ? time : keyTime_;
    const bool atOnce = IsAtOnce(when);
    command_ = atOnce && character < kFirstPrinted && character != kBackspace;
    if (character == kBackspace) {
        deleting_ = true;
        deleted_ = when;
        return atOnce ? Typed::Taken : Typed::FirstBackspace;
    }
    if (character < kFirstPrinted)
        return Typed::Taken;
    if (atOnce && source != Source::Key) {
        deleted_ = when; // the next of the same correction
        return Typed::TakenBack;
    }
    deleting_ = false;
    return character < kFirstForeign ? Typed::Taken : Typed::Refused;
}

} // namespace vndesk
