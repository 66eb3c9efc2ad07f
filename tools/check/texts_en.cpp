// SPDX-License-Identifier: MIT
// English words of vndesk-check, in the order of Id.
#include "check/texts_tables.h"

namespace vndesk::check {

const Words kEnglish[kIdCount] = {
    // system
    {L"This check is a {0}-bit program on {1} ({2}-bit). It tells what {0}-bit programs find.", L"",
     L""},
    {L"Running under Wine {0}.",
     L"Databases are reached through ODBC drivers of the machine around Wine.",
     L"Nothing, if that is intended."},
    {L"The ANSI code page is {0}.", L"", L""},
    {L"The ANSI code page is UTF-8.",
     L"Passwords with accented letters get another number than the one stored in the database.",
     L"Switch off \"Use Unicode UTF-8 for worldwide language support\" in Region, Administrative."},
    // library
    {L"VnDesk is registered: {0} ({1}-bit, version {2}), in {3}.", L"", L""},
    {L"VnDesk is not registered for {0}-bit programs.",
     L"No program of this bitness can create its classes.",
     L"Run as administrator: regsvr32 \"...\\vndesk.dll\", with the {0}-bit DLL."},
    {L"VnDesk is registered for {0}-bit programs only: {1}.",
     L"Programs of the other bitness cannot create its classes.",
     L"Register the DLL of the other bitness too; both can be registered at once."},
    {L"The registered file is not there: {0}",
     L"It was moved or deleted after it had been registered.",
     L"Put the file back, or register vndesk.dll at its new place."},
    {L"The registered file is for {1}-bit programs: {0}", L"A {2}-bit program cannot load it.",
     L"Register the {2}-bit vndesk.dll with the regsvr32 of the same bitness."},
    {L"The registered file is no program library: {0}", L"It is damaged, empty or may not be read.",
     L"Copy vndesk.dll there anew, or repair the rights of the file."},
    {L"The registered library has version {0}, this check has {1}.",
     L"Library and check come from different packages.",
     L"Install one package as a whole, then register again."},
    {L"The classes are registered from several files: {0}",
     L"A program may get classes of different versions at once.",
     L"Unregister the copies that are not wanted (regsvr32 /u), then register the wanted one."},
    {L"The registration of this user hides the one of the machine: {0} instead of {1}.",
     L"Other users of the machine, and programs run as administrator, get the other file.",
     L"If that is not wanted: regsvr32 /u /n /i:user vndesk.dll"},
    {L"The registration of this user is not in force: {0}",
     L"Wine, and Windows for programs run as administrator, read the machine's registration only.",
     L"Register for the machine: regsvr32 vndesk.dll, as administrator."},
    {L"The class {0} is not registered.", L"The registration is older than the library or damaged.",
     L"Register vndesk.dll again."},
    {L"The name {0} does not lead to its class: {1}",
     L"Programs that create the class by name get an error or another class.",
     L"Register vndesk.dll again."},
    {L"The class {0} has the threading model \"{1}\" instead of \"Apartment\".",
     L"Its objects would be used from the wrong thread.", L"Register vndesk.dll again."},
    {L"The class {0} cannot be created: {1}", L"Programs get the same error.",
     L"Follow the message; often the file may not be read, or a security program blocks it."},
    {L"All {0} classes can be created.", L"", L""},
    // type library
    {L"The type library is registered: {0}", L"", L""},
    {L"The type library is not registered for {0}-bit programs.",
     L"Visual Basic and other programs that refer to \"VnDesk\" do not start or compile; "
     L"calls between threads fail.",
     L"Register vndesk.dll again."},
    {L"The file of the type library is not there: {0}",
     L"It was moved or deleted after it had been registered.",
     L"Put the file back, or register vndesk.dll at its new place."},
    {L"The type library cannot be loaded: {0}: {1}", L"The file is damaged or another one.",
     L"Copy vndesk.dll there anew, then register it again."},
    {L"The type library is registered from another file than the classes: {0}",
     L"Programs may be compiled against another version than the one they get.",
     L"Register the wanted vndesk.dll again."},
    // ADO
    {L"ADO {0} is there: {1}", L"", L""},
    {L"ADO cannot be used: {0}: {1}", L"No form of the library can reach a database.",
     L"On Windows, repair the system (sfc /scannow). Under Wine, register adobridge.dll."},
    {L"adobridge.dll (version {0}) serves as ADO: {1}", L"", L""},
    {L"ADO is Wine's own: {0}", L"It cannot read record sets; forms open without data.",
     L"Run: wine regsvr32 /s adobridge.dll, with the {1}-bit DLL."},
    {L"OLE DB providers for {0}-bit programs: {1}", L"", L""},
    {L"The provider {0} is registered but cannot be used: {1}",
     L"Connection strings that name it fail.",
     L"Repair or reinstall the package that the provider belongs to."},
    {L"There is no provider for Jet databases (.mdb) for {0}-bit programs.",
     L"Connection strings with Microsoft.Jet.OLEDB or Microsoft.ACE.OLEDB fail. "
     L"Jet itself exists for 32-bit programs only.",
     L"If you need it: use a 32-bit program, or install the Access Database Engine of this "
     L"bitness."},
    {L"There is no provider for SQL Server for {0}-bit programs.",
     L"Connection strings with SQLOLEDB or MSOLEDBSQL fail.",
     L"If you need it: install the Microsoft OLE DB Driver for SQL Server."},
    {L"There is no OLE DB provider for any database for {0}-bit programs.",
     L"No form of the library can reach a database.",
     L"Install the provider that your connection string names."},
    {L"ODBC drivers for {0}-bit programs: {1}", L"", L""},
    {L"There are no ODBC drivers for {0}-bit programs.",
     L"Data sources (DSN), and under Wine all databases, cannot be opened.",
     L"Install the driver of this bitness; under Wine on the machine around it, e.g. "
     L"libsqliteodbc."},
    // controls
    {L"Common controls 6 are in force: {0}", L"", L""},
    {L"Common controls 6 are not to be had: {0}",
     L"Forms work but have the classic look, and some hints in boxes are missing.",
     L"On Windows, repair the system (sfc /scannow); under Wine, update the prefix (wineboot -u)."},
    {L"Visual styles are switched off.", L"Forms have the classic look.",
     L"Nothing, if that is intended."},
    // fonts
    {L"Font \"{0}\": drawn with \"{1}\", which has all Vietnamese letters.", L"", L""},
    {L"The font \"{0}\" is not installed, \"{1}\" is drawn instead.",
     L"Texts may be wider or narrower than designed.", L"Install the font if the forms look bad."},
    {L"Font \"{0}\": drawn with \"{1}\", which lacks {2} of {3} Vietnamese letters: {4}",
     L"Texts show boxes or letters of another font.",
     L"Install a font with Vietnamese letters, e.g. Arial or Liberation Sans 2."},
    // the database
    {L"The database can be opened: {0}", L"", L""},
    {L"The server of the database was not found, or does not answer: {0}",
     L"No form can reach the database.",
     L"Check name, instance and port in the connection string, that the server runs, and the "
     L"firewalls between."},
    {L"The server refuses the name or the password: {0}", L"No form can reach the database.",
     L"Check both in the connection string; a password with ; or quotes needs quotes or braces "
     L"around it."},
    {L"The provider or driver that the connection string names is missing for {1}-bit programs: "
     L"{0}",
     L"No form of a {1}-bit program can reach the database.",
     L"Install it in this bitness; a data source (DSN) must be made for this bitness too."},
    {L"The certificate of the server is not trusted: {0}", L"No form can reach the database.",
     L"Install the certificate of its authority on this machine, and connect by the name that "
     L"stands in the certificate."},
    {L"The file of the database was not found: {0}", L"No form can reach the database.",
     L"Check the path in the connection string, and that this user may read the folder."},
    {L"The connection string names Jet 4.0, which 64-bit programs do not have: {0}",
     L"No form of a 64-bit program can reach the database.",
     L"Use the 32-bit host, or ACE: the Access Database Engine of 64 bits, and its name in the "
     L"connection string."},
    {L"The server has no such database, or this login may not open it: {0}",
     L"No form can reach the database.",
     L"Check the name of the database in the connection string, and the grants of the login."},
    {L"The server is busy or not ready: {0}", L"No form can reach the database now.",
     L"Try again; where it stays so, look at the server: too many connections, or still "
     L"recovering."},
    {L"The database cannot be opened: {0}", L"No form can reach it.",
     L"Follow the message of the provider."},
    {L"{0} does not understand names in brackets.",
     L"Statements of a host that sets no Dialect fail.",
     L"Set Dialect of clsSettings to the engine."},
    {L"Tables that can be read: {0}", L"", L""},
    {L"The table {0} cannot be read: {1}", L"Logon and administration do not work without it.",
     L"Make it by the scripts in schema, or let the login of the connection string read it."},
    {L"The table {0} cannot be read: {1}", L"The search dialog has nothing to search by.",
     L"If the host searches: make it by the scripts in schema, or let the login read it."},
    {L"The table {0} cannot be read: {1}", L"No form uses it.",
     L"Nothing, unless the host keeps its own settings there."},
    {L"The table {0} has no column {1}.", L"Statements that name the column fail.",
     L"Add the column, as the scripts in schema have it."},
    {L"Column {1} of the table {0} is not in place {2}.",
     L"The library reads these columns by their place: users get wrong numbers or rights.",
     L"Make the table anew with the columns in the order of the scripts in schema."},
    {L"Groups has {0} columns for rights, Menu has {1} rows.",
     L"Rights of the last menu bars cannot be read or written.",
     L"Add integer columns at the end of Groups, one for each row of Menu."},
    {L"The table Menu has no rows.", L"The form for rights has nothing to give.",
     L"Write a row for each menu bar of the host, if it has rights."},
    {L"Menu bar {0} has {1} commands in SubMenu, 31 are possible.",
     L"The form for rights tells an error for this bar.", L"Split the bar into two rows of Menu."},
    {L"There is no user with the code 3.",
     L"It is the main administrator, whom nobody can delete and who unlocks others.",
     L"Add the user with this code, as the scripts in schema do."},
    {L"There is no group with the code {0}.",
     L"The library keeps the groups 1 and 8 from being deleted, and hosts count on them.",
     L"Add the group with this code, as the scripts in schema do."},
    {L"LstFld has fields of type {0}, Operator has no row for it.",
     L"Nothing can be compared with these fields in the search dialog.",
     L"Add rows of this type to Operator."},
    {L"LstFld has fields of type 8, dates.",
     L"Result writes them as #03/05/2021#, which SQL Server does not read.",
     L"Run ParameterizedResult or CreateCommand of clsSearch instead, or set Dialect."},
    {L"Tables of 1.1 that can be read: {0}", L"", L""},
    {L"The table {0} of 1.1 is not there.",
     L"Hosts that ask for what is kept in it get error 0x80040210.",
     L"If a host asks for it: run schema/upgrade/{1}.sql on the database."},
};

const Frame kEnglishFrame = {
    L"VnDesk check {0}",
    {L"ok", L"note", L"warning", L"error"},
    L"To do: ",
    {L"VnDesk works.", L"VnDesk works.", L"VnDesk works, with warnings.", L"VnDesk does not work."},
    L"vndesk-check [--json] [--en | --fr | --vi] [--connect STRING] [--help] [--version]\n"
    L"Tells whether VnDesk can be used by programs of this check's own bitness, and what is "
    L"wrong.\n"
    L"\n"
    L"  --json            prints JSON in UTF-8 for other programs\n"
    L"  --en              in English\n"
    L"  --fr              in French\n"
    L"  --vi              in Vietnamese; without any of them in the user's language\n"
    L"  --connect STRING  looks into the host's database too; the connection string stands in "
    L"quotes,\n"
    L"                    - reads it from the standard input. Names and passwords are never "
    L"printed.\n"
    L"  --help            prints this text\n"
    L"  --version         prints the version\n"
    L"\n"
    L"Exit code: 0 works, 1 works with warnings, 2 does not work, 3 could not be checked.\n"};

} // namespace vndesk::check
