// SPDX-License-Identifier: MIT
// What vndesk-check can find, one name each. Names are stable: scripts and docs/troubleshooting.md
// know them. No windows.h: built and tested natively too.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vndesk::check {

// In the order of how bad it is.
enum class State { Ok, Note, Warning, Error };

enum class Id {
    System,
    Wine,
    CodePage,
    CodePageUtf8,
    LibraryRegistered,
    LibraryNotRegistered,
    LibraryOtherBitnessOnly,
    LibraryFileMissing,
    LibraryWrongBitness,
    LibraryNotALibrary,
    LibraryVersionDiffers,
    LibrarySeveralCopies,
    LibraryUserHidesMachine,
    LibraryUserIgnored,
    ClassNotRegistered,
    ClassNameWrong,
    ClassThreading,
    ClassNotCreated,
    ClassesCreated,
    TypeLibraryRegistered,
    TypeLibraryNotRegistered,
    TypeLibraryFileMissing,
    TypeLibraryNotLoaded,
    TypeLibraryOtherFile,
    AdoReady,
    AdoMissing,
    AdoBridge,
    AdoBridgeMissing,
    ProvidersPresent,
    ProviderBroken,
    ProviderNoJet,
    ProviderNoSqlServer,
    ProviderNone,
    OdbcDrivers,
    OdbcNone,
    CommonControls,
    CommonControlsOld,
    ThemeOff,
    FontReady,
    FontReplaced,
    FontNoVietnamese,
    DatabaseOpened,
    DatabaseServerNotFound,
    DatabaseLoginRefused,
    DatabaseDriverMissing,
    DatabaseCertificate,
    DatabaseFileNotFound,
    DatabaseJetIn64Bit,
    DatabaseNotOnServer,
    DatabaseServerNotReady,
    DatabaseNotOpened,
    DatabaseNeedsDialect,
    TablesPresent,
    TableMissing,
    SearchTableMissing,
    OptionsTableMissing,
    ColumnMissing,
    ColumnOrder,
    RightsColumnsMissing,
    MenuEmpty,
    MenuBarTooLong,
    AdministratorMissing,
    GroupMissing,
    OperatorsMissing,
    DateFields,
    UpgradesPresent,
    UpgradeMissing,
    Count
};
constexpr std::size_t kIdCount = static_cast<std::size_t>(Id::Count);

struct Kind {
    Id id;
    const wchar_t* name;
    State state;
};

const Kind& KindOf(Id id);

// One thing found. The values take the places {0}, {1}... of the texts.
struct Finding {
    Id id;
    std::vector<std::wstring> values;
};
using Findings = std::vector<Finding>;

State Worst(const Findings& findings);

// For scripts: 0 works, 1 works with warnings, 2 does not work.
int ExitCode(const Findings& findings);
constexpr int kCouldNotCheck = 3;

} // namespace vndesk::check
