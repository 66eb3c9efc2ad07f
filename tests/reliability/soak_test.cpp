// SPDX-License-Identifier: MIT
// The tour under a user who does anything. VNDESK_SOAK_SECONDS and VNDESK_SOAK_SEED choose how long
// and which one; even seeds use the server database where there is one.
#include <gtest/gtest.h>

#include "reliability/database_rules.h"
#include "reliability/soak.h"
#include "support/env.h"

namespace vndesk::test {
namespace {

constexpr ULONGLONG kSeconds = 60;
constexpr uint64_t kSeed = 1;

uint64_t Setting(const wchar_t* name, uint64_t otherwise) {
    const std::wstring text = EnvironmentText(name);
    return text.empty() ? otherwise : wcstoul(text.c_str(), nullptr, 10);
}

TEST(TourSoak, RandomUseLeavesProgramAndDatabaseSound) {
    const uint64_t seed = Setting(L"VNDESK_SOAK_SEED", kSeed);
    const bool server = seed % 2 == 0 && SampleDatabase::ServerAvailable();
    const SampleDatabase database = server ? SampleDatabase::Server() : SampleDatabase::Embedded();
    const DatabaseRules rules(database);
    Soak soak(database, seed, OutDir() + L"\\soak-" + std::to_wstring(seed) + L".log");
    EXPECT_NO_THROW(soak.Run(Setting(L"VNDESK_SOAK_SECONDS", kSeconds)));
    EXPECT_EQ(L"", rules.Broken());
    std::printf("figures: seed %llu on %s: %s\n", static_cast<unsigned long long>(seed),
                server ? "the server" : "a file", soak.Figures().c_str());
}

} // namespace
} // namespace vndesk::test
