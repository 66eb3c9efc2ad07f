// SPDX-License-Identifier: MIT
// The words of vndesk-check in its languages.
#pragma once

#include "check/findings.h"
#include "console/language.h"

namespace vndesk::check {

using console::Fill;
using console::Language;
using console::NameOf;

// What was found, what it means, what to do; the last two are empty where all is well.
struct Words {
    const wchar_t* found;
    const wchar_t* means;
    const wchar_t* todo;
};

// The words around the findings.
struct Frame {
    const wchar_t* title; // {0} the version
    const wchar_t* states[4];
    const wchar_t* todo;       // before what to do
    const wchar_t* results[4]; // the last line, by the worst state
    const wchar_t* usage;
};

const Words& WordsOf(Id id, Language language);
const Frame& FrameOf(Language language);

} // namespace vndesk::check
