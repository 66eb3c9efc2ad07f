// SPDX-License-Identifier: MIT
// What a host asks for beyond version 1.0: the values of one clsSettings, read when an operation
// starts and handed down with its database. The defaults are 1.0.
#pragma once

namespace vndesk {

enum class PasswordScheme : long {
    Code = 0,  // a number in [User].[Password]
    Pbkdf2 = 1 // a salted hash in VnUser
};

enum class ConnectionErrors : long {
    ShowString = 0, // the connection string in a Windows box; the form opens all the same
    ShowReason = 1, // what is wrong in words, without secrets; the form does not open
    Raise = 2       // the same as an error of the call
};

// The engine whose language statements are written in.
enum class DialectChoice : long {
    Auto = 0, // as 1.0, for Jet or SQL Server by the connection string
    Jet = 1,
    SqlServer = 2,
    PostgreSql = 3,
    Sqlite = 4,
    MySql = 5
};

// How far accents count where names are found by what users type of them (text/letters/match.h).
enum class AccentRule : long { Sensitive = 0, Smart = 1, Insensitive = 2 };

enum class EnterMode : long {
    MovesOn = 0, // like Tab, as 1.0
    Confirms = 1 // it presses the default button when the next field is filled
};

struct Settings {
    // Values go to the engine as parameters, not inside the text of statements.
    bool BindParameters = false;

    PasswordScheme Scheme = PasswordScheme::Code;
    // A password that fits its number gets its hash at the logon.
    bool UpgradeOnLogon = true;
    // In characters; of new passwords.
    long MinPasswordLength = 0;

    // So many failures within the window lock a user for some minutes; 0 never does.
    long LockAfter = 0;
    long LockWindowMinutes = 15;
    long LockMinutes = 15;

    // Logons and changes of users, groups and rights are recorded in VnAudit.
    bool Audit = false;

    DialectChoice Dialect = DialectChoice::Auto;

    // What happens where the database cannot be opened.
    ConnectionErrors OnConnectionError = ConnectionErrors::ShowString;

    EnterMode Enter = EnterMode::MovesOn;

    AccentRule Accents = AccentRule::Sensitive;
    // Names are found by what stands inside them, too.
    bool MatchAnywhere = false;

    // Lists shrink to the names that are found, and 1.0's search for beginnings is left.
    bool FindsNames() const { return Accents != AccentRule::Sensitive || MatchAnywhere; }

    // Password boxes warn of input methods and Caps Lock, and have a button that shows the
    // password.
    bool InputWarnings = false;

    // Connection strings and what providers say are shown without names and passwords.
    bool HidesSecrets() const { return OnConnectionError != ConnectionErrors::ShowString; }
    // Every change is a transaction of its own: where its commit is not answered, the user is told
    // that nobody knows, and any other error means that nothing was written.
    bool TellsLostAnswers() const { return OnConnectionError != ConnectionErrors::ShowString; }
    bool EnterConfirms() const { return Enter == EnterMode::Confirms; }
    // Whether the operation needs VnUser.
    bool KeepsAccounts() const { return Scheme == PasswordScheme::Pbkdf2 || LockAfter > 0; }
    // Users are found and changed by their names as they are, wherever more than 1.0 hangs on them.
    bool Binds() const { return BindParameters || KeepsAccounts() || Audit; }
};

} // namespace vndesk
