// SPDX-License-Identifier: MIT
#include "rights.h"

#include <map>
#include <string>

namespace {

constexpr size_t kFirstMask = 3; // after Code, Name and Des
constexpr int kMaxCommands = 31;

} // namespace

Rights::Rights(HostDatabase& database, long userCode) {
    const auto groups = database.Read(
        L"SELECT * FROM Groups WHERE Code IN (SELECT IdGroup FROM [User] WHERE Code=" +
        std::to_wstring(userCode) + L")");
    if (groups.empty())
        return; // the group has been deleted: its users keep their names and have no rights
    const Row& group = groups.front();

    struct Bar {
        long mask = 0;
        int next = 0; // place of the next command
    };
    std::map<long, Bar> bars;
    size_t column = kFirstMask;
    // Without an order of our own: the library reads the table as it stands, too.
    for (const Row& menu : database.Read(L"SELECT ID,[Desc] FROM Menu")) {
        if (column < group.size())
            bars[NumberOf(menu[0])].mask = NumberOf(group[column]);
        ++column;
    }
    for (const Row& command : database.Read(L"SELECT ID,IdMenuBar FROM SubMenu ORDER BY ID")) {
        Bar& bar = bars[NumberOf(command[1])];
        const int place = bar.next++;
        if (place < kMaxCommands && (bar.mask >> place & 1))
            granted_.insert(NumberOf(command[0]));
    }
}
