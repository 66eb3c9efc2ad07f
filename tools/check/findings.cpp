// SPDX-License-Identifier: MIT
#include "check/findings.h"

#include <algorithm>
#include <iterator>

namespace vndesk::check {

namespace {

constexpr Kind kKinds[] = {
    {Id::System, L"system", State::Ok},
    {Id::Wine, L"wine", State::Note},
    {Id::CodePage, L"code-page", State::Ok},
    {Id::CodePageUtf8, L"code-page-utf8", State::Warning},
    {Id::LibraryRegistered, L"library-registered", State::Ok},
    {Id::LibraryNotRegistered, L"library-not-registered", State::Error},
    {Id::LibraryOtherBitnessOnly, L"library-other-bitness-only", State::Error},
    {Id::LibraryFileMissing, L"library-file-missing", State::Error},
    {Id::LibraryWrongBitness, L"library-wrong-bitness", State::Error},
    {Id::LibraryNotALibrary, L"library-not-a-library", State::Error},
    {Id::LibraryVersionDiffers, L"library-version-differs", State::Warning},
    {Id::LibrarySeveralCopies, L"library-several-copies", State::Warning},
    {Id::LibraryUserHidesMachine, L"library-user-hides-machine", State::Note},
    {Id::LibraryUserIgnored, L"library-user-ignored", State::Warning},
    {Id::ClassNotRegistered, L"class-not-registered", State::Error},
    {Id::ClassNameWrong, L"class-name-wrong", State::Error},
    {Id::ClassThreading, L"class-threading", State::Error},
    {Id::ClassNotCreated, L"class-not-created", State::Error},
    {Id::ClassesCreated, L"classes-created", State::Ok},
    {Id::TypeLibraryRegistered, L"type-library-registered", State::Ok},
    {Id::TypeLibraryNotRegistered, L"type-library-not-registered", State::Error},
    {Id::TypeLibraryFileMissing, L"type-library-file-missing", State::Error},
    {Id::TypeLibraryNotLoaded, L"type-library-not-loaded", State::Error},
    {Id::TypeLibraryOtherFile, L"type-library-other-file", State::Warning},
    {Id::AdoReady, L"ado-ready", State::Ok},
    {Id::AdoMissing, L"ado-missing", State::Error},
    {Id::AdoBridge, L"ado-bridge", State::Ok},
    {Id::AdoBridgeMissing, L"ado-bridge-missing", State::Error},
    {Id::ProvidersPresent, L"providers-present", State::Ok},
    {Id::ProviderBroken, L"provider-broken", State::Warning},
    {Id::ProviderNoJet, L"provider-no-jet", State::Note},
    {Id::ProviderNoSqlServer, L"provider-no-sql-server", State::Note},
    {Id::ProviderNone, L"provider-none", State::Error},
    {Id::OdbcDrivers, L"odbc-drivers", State::Ok},
    {Id::OdbcNone, L"odbc-none", State::Warning},
    {Id::CommonControls, L"common-controls", State::Ok},
    {Id::CommonControlsOld, L"common-controls-old", State::Warning},
    {Id::ThemeOff, L"theme-off", State::Note},
    {Id::FontReady, L"font-ready", State::Ok},
    {Id::FontReplaced, L"font-replaced", State::Note},
    {Id::FontNoVietnamese, L"font-no-vietnamese", State::Warning},
    {Id::DatabaseOpened, L"database-opened", State::Ok},
    {Id::DatabaseServerNotFound, L"database-server-not-found", State::Error},
    {Id::DatabaseLoginRefused, L"database-login-refused", State::Error},
    {Id::DatabaseDriverMissing, L"database-driver-missing", State::Error},
    {Id::DatabaseCertificate, L"database-certificate-not-trusted", State::Error},
    {Id::DatabaseFileNotFound, L"database-file-not-found", State::Error},
    {Id::DatabaseJetIn64Bit, L"database-jet-in-64-bit", State::Error},
    {Id::DatabaseNotOnServer, L"database-not-on-server", State::Error},
    {Id::DatabaseServerNotReady, L"database-server-not-ready", State::Error},
    {Id::DatabaseNotOpened, L"database-not-opened", State::Error},
    {Id::DatabaseNeedsDialect, L"database-needs-dialect", State::Warning},
    {Id::TablesPresent, L"tables-present", State::Ok},
    {Id::TableMissing, L"table-missing", State::Error},
    {Id::SearchTableMissing, L"search-table-missing", State::Warning},
    {Id::OptionsTableMissing, L"options-table-missing", State::Note},
    {Id::ColumnMissing, L"column-missing", State::Error},
    {Id::ColumnOrder, L"column-order", State::Error},
    {Id::RightsColumnsMissing, L"rights-columns-missing", State::Error},
    {Id::MenuEmpty, L"menu-empty", State::Note},
    {Id::MenuBarTooLong, L"menu-bar-too-long", State::Error},
    {Id::AdministratorMissing, L"administrator-missing", State::Warning},
    {Id::GroupMissing, L"group-missing", State::Warning},
    {Id::OperatorsMissing, L"operators-missing", State::Warning},
    {Id::DateFields, L"date-fields", State::Note},
    {Id::UpgradesPresent, L"upgrades-present", State::Ok},
    {Id::UpgradeMissing, L"upgrade-missing", State::Note},
};

constexpr bool InOrder() {
    for (std::size_t i = 0; i < std::size(kKinds); ++i)
        if (kKinds[i].id != static_cast<Id>(i))
            return false;
    return std::size(kKinds) == kIdCount;
}
static_assert(InOrder(), "one row for each name, in the order of Id");

} // namespace

const Kind& KindOf(Id id) {
    return kKinds[static_cast<std::size_t>(id)];
}

State Worst(const Findings& findings) {
    State worst = State::Ok;
    for (const Finding& finding : findings)
        worst = std::max(worst, KindOf(finding.id).state);
    return worst;
}

int ExitCode(const Findings& findings) {
    switch (Worst(findings)) {
    case State::Error:
        return 2;
    case State::Warning:
        return 1;
    default:
        return 0;
    }
}

} // namespace vndesk::check
