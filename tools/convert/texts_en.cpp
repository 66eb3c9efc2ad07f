// SPDX-License-Identifier: MIT
// English words of vndesk-convert, in the order of Message.
#include "convert/texts_tables.h"

namespace vndesk::convert {

const wchar_t* const kEnglish[kMessages] = {
    L"{0} is missing.",
    // what prevents it
    L"The database cannot be opened. {0}", L"The table {0} cannot be read. {1}",
    L"The table {0} has no column {1}.", L"The column {1} of the table {0} holds no text.",
    L"The column {1} of the table {0} cannot hold Unicode. Make it nvarchar, nchar or ntext first.",
    L"The database tells of no primary key of the table {0}. Name the columns that tell its rows "
    L"apart: --key A,B",
    L"The table {0} is of the kind {1}, which takes nothing back. Turn it into one with "
    L"transactions first, such as InnoDB.",
    L"The rows of the table {0} cannot be read. {1}", L"The report {0} cannot be written. {1}",
    // rows
    L"The row {0} cannot be written. {1}",
    L"The row {0} is no more what it was when it was read. Somebody else works with the database.",
    L"{0} does not tell the rows of the table apart: it is more than one.",
    L"The database has not kept the letters of the row {0} in the column {1}.",
    L"Nothing has been changed.",
    L"The connection broke before the end was answered: either everything is converted or nothing. "
    L"Run the program again.",
    L"The end was refused. {0}",
    // numbers
    L"{0} rows read", L"{0} of {1} rows written",
    L"{0}: {1} to convert, {2} in Unicode already, {3} the same in both, {4} doubtful",
    L"Doubtful, and left as they are: {0}.", L"They are listed in {0}.",
    L"With --report FILE they are listed.", L"{0} rows converted.",
    L"Dry run: {0} rows would be converted. Nothing has been changed.",
    L"There is nothing to convert.",
    // files
    L"The file {0} cannot be read. {1}", L"The file {0} cannot be written. {1}",
    L"The file {0} is Unicode already.", L"The file {0} is not recognised ({1}).",
    L"{0} has been converted to {1}.",
    L"Dry run: {0} would be converted to {1}. Nothing has been written.",
    // usage
    L"vndesk-convert --connect STRING --table TABLE --columns A,B --from tcvn3|vni|cp1258\n"
    L"               [--key A,B] [--dry-run] [--report FILE] [--en | --fr | --vi]\n"
    L"vndesk-convert --in FILE --out FILE --from tcvn3|vni|cp1258 [--bom] [--dry-run]\n"
    L"Converts columns of an old database, or a text file, to Unicode.\n"
    L"\n"
    L"  --connect STRING  the connection string of the database, in quotes; - reads it from the\n"
    L"                    standard input. Names and passwords are never printed.\n"
    L"  --table TABLE     the table\n"
    L"  --columns A,B     its columns to convert; --column NAME takes one with a comma in it\n"
    L"  --from CODE       what they are in: tcvn3 (.Vn fonts), vni (VNI fonts), cp1258\n"
    L"  --key A,B         the columns that tell its rows apart, instead of the primary key\n"
    L"  --dry-run         changes nothing and says what would be done\n"
    L"  --report FILE     lists the doubtful values, and in a dry run those to convert: CSV in "
    L"UTF-8\n"
    L"  --in, --out FILE  a text file, and the one in UTF-8 to make of it\n"
    L"  --bom             with the mark of UTF-8 at its beginning\n"
    L"  --en, --fr, --vi  the language; without one the user's\n"
    L"  --help            prints this\n"
    L"  --version         prints the version\n"
    L"\n"
    L"Only what is surely in that encoding is converted, all of it or nothing.\n"
    L"Exit code: 0 done, 1 done and values are doubtful, 2 nothing changed because of an error, 3 "
    L"wrong\n"
    L"option, 4 not known whether it was done: run it again.\n"};

} // namespace vndesk::convert
