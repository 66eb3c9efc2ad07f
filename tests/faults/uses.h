// SPDX-License-Identifier: MIT
// The uses that a host makes of the library's forms on its database, each as a script: what the
// host calls, what the user does, what comes out.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "faults/player.h"
#include "support/sample_database.h"

namespace vndesk::test {

struct Use {
    const char* name = "";
    std::vector<Step> steps = {};
    // The host's call with a connection string to the database. Its answer as text.
    std::function<std::wstring(const SampleDatabase& database, const std::wstring& connection)>
        call = {};
    std::wstring answer = {};  // when all goes well
    std::wstring neutral = {}; // when it was not to be had; "": the call has no answer
    // What the use changes, for those that write: a statement and what it reads afterwards.
    const wchar_t* probe = nullptr;
    const wchar_t* probed = nullptr;
    // A failing statement is not told, and the list says that the rows are gone.
    bool tellsNoFailedWrite = false;
    // What is looked up after the statement comes back empty without a word.
    bool asksAfterWriting = false;
    // The first call is part of a property, which raises the error to the host.
    bool raisesTheFirst = false;
    // When the statement that asks whether the name is taken is refused, which is told, the user is
    // written: the engine may refuse that too, and says why.
    bool writesUnchecked = false;
    // Rows that cannot be counted count as none: the setting is added beside the one that is there.
    bool addsUncounted = false;
    // A look-up that fails leads to the update of a row that is not there.
    bool mayUpdateNothing = false;
    // The change and its records are one transaction: what has been run may be undone. Before a
    // form opens the host gets the error of a missing table, which is the neutral answer.
    bool recorded = false;
    // Where the string names its provider, nobody needs to hear that another one was refused.
    bool refusedProviderIsSilent = false;
    // How many statements write when all goes well.
    int writes = 1;
};

inline void PrintTo(const Use& use, std::ostream* out) {
    *out << use.name;
}

const std::vector<Use>& AllUses();
// Those that write, of a host whose settings have every change recorded.
const std::vector<Use>& RecordedUses();
// The same of a host that also wants to be told where an answer is lost.
const std::vector<Use>& ToldUses();

struct Played {
    std::wstring answer;
    std::vector<std::wstring> messages;

    // Whether the user was told something that another time was not told.
    bool TellsMoreThan(const Played& other) const;
};

// Plays a use; everything must have closed when the call returns. `meanwhile` happens just before
// the last step, while the form of that step is open; before the call, when there are no steps.
Played Play(const Use& use, const SampleDatabase& database,
            const std::function<void()>& meanwhile = {}, const std::wstring& connection = {});

// What is the same for all failures of a database: the host has its answer or the neutral one, and
// a write that did not happen was told.
void ExpectTold(const Use& use, const Played& well, const Played& played);

// Few rows in every table, so that a use makes few calls.
void MakeSmall(const SampleDatabase& database);

// All that the uses could change, as text.
std::wstring Contents(const SampleDatabase& database);

} // namespace vndesk::test
