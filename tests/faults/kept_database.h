// SPDX-License-Identifier: MIT
// A small database in a file, as it was before each use of it, and what a process holds before and
// after many uses.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "faults/uses.h"
#include "support/leak_probe.h"

namespace vndesk::test {

class KeptDatabase {
public:
    KeptDatabase() {
        MakeSmall(database_);
        CopyFileW(File().c_str(), Kept().c_str(), FALSE);
        before_ = Contents(database_);
    }

    const SampleDatabase& Sample() const { return database_; }
    const std::wstring& Before() const { return before_; }
    std::wstring Now() const { return Contents(database_); }
    std::wstring File() const { return database_.File(); }
    std::wstring Kept() const { return File() + L".kept"; }
    void Restore() const { EXPECT_TRUE(CopyFileW(Kept().c_str(), File().c_str(), FALSE)); }

private:
    const SampleDatabase database_ = SampleDatabase::Embedded();
    std::wstring before_;
};

// What the process holds. Take it after a warm-up: the first windows of a kind fill caches that
// stay.
class Holdings {
public:
    // Nothing has stayed since, but what Wine's own controls and message boxes keep far below a
    // form. Tells the figures.
    void ExpectBack(const char* use, size_t calls, int faults) const {
        constexpr long kToleratedBytes = 1024; // a fault
        constexpr long kToleratedGdi = 2;      // however many faults
        const auto growth = static_cast<long>(HeapInUse().bytes - heap_);
        EXPECT_LE(GdiObjectsBesideContexts(), gdi_ + kToleratedGdi);
        EXPECT_EQ(user_, UserObjects());
        EXPECT_LE(growth, faults * kToleratedBytes);
        printf("figures: %s: %d calls, %d faults, the heap grew by %ld bytes a fault\n", use,
               static_cast<int>(calls), faults, growth / std::max(1, faults));
    }

private:
    const long gdi_ = GdiObjectsBesideContexts();
    const long user_ = UserObjects();
    const size_t heap_ = HeapInUse().bytes;
};

} // namespace vndesk::test
