// SPDX-License-Identifier: MIT
// Which commands the logged-on user may run: what the administrator ticks in the library's form of
// menu rights, read back from the host's own database. Take this file over as it is.
//
// The library stores the rights in the row of the user's group, one number per menu bar:
//
//   Menu       one row per menu bar            ID  Desc
//   SubMenu    one row per command of a bar    ID  IdMenuBar  Desc
//   Groups     Code  Name  Des  P1  P2  P3 ... one column per row of Menu, in the same order
//
// Bit i of a bar's number stands for the bar's command at place i, counted from 0 by ascending
// SubMenu.ID. Columns count by their position: the host may name them as it likes. A bar has room
// for 31 commands.
#pragma once
#include <set>

#include "host_database.h"

class Rights {
public:
    // While nobody is logged on, nothing is granted.
    Rights() = default;

    // Reads what the group of a user has been granted. Read again after each form that may have
    // changed it. Throws HostError.
    Rights(HostDatabase& database, long userCode);

    // Whether a command may run, named by its ID in SubMenu.
    bool Allows(long command) const { return granted_.contains(command); }

private:
    std::set<long> granted_;
};
