// SPDX-License-Identifier: MIT
// The words of vndesk-convert in its languages.
#pragma once

#include "console/language.h"

namespace vndesk::convert {

enum class Message {
    Missing, // {0} an option
    // What prevents it. {0} the table; {1} what the provider says, or a name
    CannotOpen, // {0} what the provider says
    NoTable,
    NoColumn,
    NotText,
    NotUnicode,
    NoKey,
    NoTransactions, // {1} the engine's name for the kind of table
    ReadFailed,
    ReportFailed, // {0} the file, {1} what the system says
    // {0} the row
    WriteFailed, // {1} what the provider says
    RowChanged,
    KeyNotUnique,
    NotKept, // {1} the column
    NothingChanged,
    AnswerLost,
    CommitFailed, // {0} what the provider says
    // Numbers of rows.
    RowsRead,
    RowsWritten, // {0} of {1}
    ColumnFound, // {0} the column, then numbers of values: to convert, in Unicode, the same,
                 // doubtful
    Doubtful,    // {0} how many values
    Listed,      // {0} the report
    NotListed,
    Converted,
    WouldConvert,
    NothingToDo,
    // {0} the file
    FileNotRead, // {1} what the system says
    FileNotWritten,
    FileIsUnicode,
    FileNotRecognised, // {1} why
    FileConverted,     // {1} the new file
    FileWouldConvert,
    Usage,
    Count
};

const wchar_t* TextOf(Message message, console::Language language);

} // namespace vndesk::convert
