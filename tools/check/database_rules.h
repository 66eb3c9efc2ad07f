// SPDX-License-Identifier: MIT
// What the library needs in a host's database, and what is wrong with one. No windows.h: built and
// tested natively too.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "check/findings.h"
#include "data/text/connection_failure.h"

namespace vndesk::check {

struct TableSeen {
    std::vector<std::wstring> columns;
    // What the provider says where the table cannot be read; empty where it can.
    std::wstring error;
};

// What was read of a database. Rows count only where their table can be read.
struct DatabaseSeen {
    std::wstring engine; // as it calls itself
    std::wstring script; // as the upgrade scripts call it
    bool refusesBrackets = false;
    bool readsHashDates = true; // #03/05/2021#
    std::map<std::wstring, TableSeen> tables;
    std::set<long> users; // of those that are looked for
    std::set<long> groups;
    std::vector<long> menus;       // Menu.ID
    std::map<long, long> commands; // SubMenu: how many for each IdMenuBar
    std::set<long> fieldTypes;     // LstFld.Type
    std::set<long> operatorTypes;
};

// A table and the columns that statements name.
struct TableWanted {
    const wchar_t* name;
    Id missing;
    std::vector<const wchar_t*> columns;
    // How many of them, from the first, the library reads by their place.
    std::size_t inOrder = 0;
};

const std::vector<TableWanted>& TablesWanted();
// The user and the groups that have to be there.
inline constexpr long kMainAdministrator = 3;
inline constexpr long kKeptGroups[] = {1, 8};

Findings JudgeDatabase(const DatabaseSeen& seen);
Finding JudgeFailure(const ConnectionFailure& failure);

} // namespace vndesk::check
