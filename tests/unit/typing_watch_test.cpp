// SPDX-License-Identifier: MIT
// An input method is told from a keyboard by what it sends, whatever the hand does.
#include "forms/password/text/typing_watch.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/typing_streams.h"

using namespace vndesk;
using namespace vndesk::test;

namespace {

// A box whose letters pass through the watch.
class Box {
public:
    explicit Box(TypingWatch::Time start = 1000) : now_(start) {}

    std::wstring text;
    int refused = 0;

    void Wait(TypingWatch::Time milliseconds) { now_ += milliseconds; }
    Typed Key(wchar_t character) {
        watch_.KeyDown(false, now_);
        return Character(character);
    }
    Typed Packet(wchar_t character) {
        watch_.KeyDown(true, now_);
        return Character(character);
    }
    // Posted: no key at all.
    Typed Character(wchar_t character) {
        const Typed typed = watch_.Character(character, now_);
        if (typed == Typed::FirstBackspace)
            before_ = text;
        if (typed == Typed::TakenBack)
            text = before_;
        if (typed == Typed::TakenBack || typed == Typed::Refused)
            ++refused;
        else if (character != L'\b')
            text += character;
        else if (!text.empty())
            text.pop_back();
        return typed;
    }
    bool PasteFollows() const { return watch_.PasteFollowsBackspace(now_); }

private:
    TypingWatch watch_;
    TypingWatch::Time now_;
    std::wstring before_;
};

class TypingWatchTest : public testing::TestWithParam<TypingStream> {};
INSTANTIATE_TEST_SUITE_P(Streams, TypingWatchTest, testing::ValuesIn(kTypingStreams),
                         [](const auto& info) { return std::string(info.param.name); });

// What the stream leaves in a box that nobody watches.
std::wstring Unwatched(const TypingStream& stream) {
    std::wstring text;
    for (const Stroke& stroke : StrokesOf(stream))
        if (stroke.kind == Stroke::Backspace)
            text.pop_back();
        else
            text += stroke.character;
    return text;
}

// A Backspace is a key, or posted as the other characters are.
void Play(const TypingStream& stream, Box& box, bool posted) {
    for (const Stroke& stroke : StrokesOf(stream)) {
        box.Wait(stroke.kind == Stroke::Key ? 90 : 2);
        if (stroke.kind == Stroke::Key || (stroke.kind == Stroke::Backspace && !posted))
            box.Key(stroke.character);
        else if (posted)
            box.Character(stroke.character);
        else
            box.Packet(stroke.character);
    }
}

TEST_P(TypingWatchTest, StreamWritesTheNameWhereNobodyWatches) {
    EXPECT_EQ(kTypedName, Unwatched(GetParam()));
}

TEST_P(TypingWatchTest, OfAStreamTheKeysAreLeft) {
    std::wstring keys;
    for (const Stroke& stroke : StrokesOf(GetParam()))
        if (stroke.kind == Stroke::Key)
            keys += stroke.character;
    for (const bool posted : {false, true})
        // The last one: milliseconds begin anew after 49 days.
        for (const TypingWatch::Time start : {0u, 1000u, 0xFFFFFFF0u}) {
            Box box(start);
            Play(GetParam(), box, posted);
            EXPECT_EQ(keys, box.text);
            EXPECT_LT(3, box.refused);
        }
}

TEST(TypingWatch, HandsMayDeleteAndTypeAsFastAsTheyCan) {
    Box box;
    box.Key(L'a');
    box.Key(L'\b');
    EXPECT_EQ(Typed::Taken, box.Key(L'b'));
    EXPECT_EQ(L"b", box.text);
}

TEST(TypingWatch, CharactersWithoutAKeyAreTakenUnlessTheyFollowABackspaceAtOnce) {
    Box box;
    EXPECT_EQ(Typed::Taken, box.Packet(L'a')); // a screen keyboard, a remote one
    EXPECT_EQ(Typed::Taken, box.Character(L'b'));
    box.Key(L'\b');
    box.Wait(31);
    EXPECT_EQ(Typed::Taken, box.Packet(L'c'));
    box.Key(L'\b');
    box.Wait(30);
    EXPECT_EQ(Typed::TakenBack, box.Packet(L'd'));
    EXPECT_EQ(L"ac", box.text);
}

TEST(TypingWatch, LettersFrom0x80OnAreRefusedWhateverSendsThem) {
    Box box;
    EXPECT_EQ(Typed::Taken, box.Key(L'\x7F' - 1));
    EXPECT_EQ(Typed::Refused, box.Key(L'\x80'));
    EXPECT_EQ(Typed::Refused, box.Packet(L'đ'));
    EXPECT_EQ(Typed::Refused, box.Character(L'ệ'));
    EXPECT_EQ(L"~", box.text);
}

// A busy program takes the characters late.
TEST(TypingWatch, TimeIsThatOfTheKey) {
    TypingWatch watch;
    watch.KeyDown(false, 1000);
    EXPECT_EQ(Typed::FirstBackspace, watch.Character(L'\b', 1400));
    watch.KeyDown(true, 1002);
    EXPECT_EQ(Typed::TakenBack, watch.Character(L'a', 1800));
}

TEST(TypingWatch, WhatIsPastedAtOnceIsAnInputMethodsToo) {
    Box box;
    EXPECT_FALSE(box.PasteFollows());
    box.Key(L'\b');
    EXPECT_TRUE(box.PasteFollows()); // by Shift+Insert
    box.Wait(31);
    EXPECT_FALSE(box.PasteFollows());
    box.Key(L'\x16'); // Ctrl+V
    EXPECT_FALSE(box.PasteFollows());
    box.Key(L'\b');
    box.Key(L'\x16');
    box.Wait(500); // until the form has come to it
    EXPECT_TRUE(box.PasteFollows());
    box.Key(L'a');
    EXPECT_FALSE(box.PasteFollows());
}

} // namespace
