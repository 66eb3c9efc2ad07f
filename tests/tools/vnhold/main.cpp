// SPDX-License-Identifier: MIT
// vnhold CONNECTION STATEMENT EVENT: runs a statement on an ODBC connection and keeps the
// connection open, as another workstation that does not come to an end. Sets the event when it has
// the connection, and ends when the event is reset.
#include <windows.h>

#include <cstdio>
#include <exception>

#include "support/odbc_session.h"

int wmain(int count, wchar_t** words) {
    if (count != 4)
        return 2;
    const HANDLE held = OpenEventW(EVENT_MODIFY_STATE | SYNCHRONIZE, FALSE, words[3]);
    if (!held)
        return 3;
    try {
        vndesk::test::OdbcSession session(words[1]);
        session.Execute(words[2]);
        SetEvent(held);
        while (WaitForSingleObject(held, 0) == WAIT_OBJECT_0)
            Sleep(5);
    } catch (const std::exception& error) {
        fprintf(stderr, "vnhold: %s\n", error.what());
        return 1;
    }
    return 0;
}
