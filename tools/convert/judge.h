// SPDX-License-Identifier: MIT
// What is to become of a text of an old database, and of a text file: whether it is surely in the
// encoding that it is said to be in.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/encodings/bytes.h"
#include "text/encodings/encoding.h"

namespace vndesk::convert {

enum class Verdict {
    Plain,   // the same in both encodings
    Already, // Vietnamese in Unicode
    Convert,
    Doubtful
};

enum class Doubt {
    None,
    NotRecognised,
    Either, // Vietnamese both as it stands and after the conversion
    LooksLikeTcvn3,
    LooksLikeVni,
    LooksLikeCp1258,
    NoKey, // the row cannot be named
    Count
};

// As the report has it. Names never change.
const wchar_t* NameOf(Doubt doubt);

struct Judged {
    Verdict verdict = Verdict::Plain;
    Doubt doubt = Doubt::None;
    std::wstring converted = {}; // what it would be; empty where it is no text of bytes
};

// The bytes that a text was before code page 1252 made characters of them, each as one character.
// Nothing where it has characters that the page cannot give.
std::optional<std::wstring> AnsiBytes(std::wstring_view text);

// A converted text is never judged to be converted again, from whatever encoding.
Judged Judge(std::wstring_view text, Encoding from);

// A whole file.
Judged JudgeFile(ByteView bytes, Encoding from);

} // namespace vndesk::convert
