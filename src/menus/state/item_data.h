// SPDX-License-Identifier: MIT
// What the library knows of a converted menu item. The item's own data is the number under which
// it is found here.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <unordered_map>

#include "menus/item/menu_caption.h"

namespace vndesk {

// A menu item as its host made it, to be put back.
struct OriginalItem {
    UINT type = 0;
    UINT state = 0;
    ULONG_PTR data = 0;
    std::wstring caption;
};

struct CMyItemData {
    bool bTrueSub = false;    // opens a submenu
    std::wstring sMenuHelp;   // help text for the host
    bool bAsMark = false;     // checked state as a radio mark
    bool bAsCheck = false;    // a check item: unchecked it has an empty box
    bool bMainMenu = false;   // on the menu bar
    short iButton = kNoImage; // its image in the image list
    UINT fType = 0;           // type flags as read at conversion
    std::wstring sMenuText;   // caption

    ULONG_PTR number = 0;
    // Where the item was seen last, and that its number was in the menu no more.
    HMENU menu = nullptr;
    UINT position = 0;
    UINT id = 0;
    bool gone = false;
    bool captionedSeparator = false; // by its caption, not by its type
    OriginalItem original;
};

// A keyed collection of them by their numbers.
class CMyItemDatas {
public:
    using Map = std::unordered_map<ULONG_PTR, std::unique_ptr<CMyItemData>>;

    // Throws the duplicate-key error for a key that is there already.
    CMyItemData& Add(ULONG_PTR key);
    // Null when there is none.
    CMyItemData* Item(ULONG_PTR key) const;
    long Count() const { return static_cast<long>(items_.size()); }
    void Remove(ULONG_PTR key) { items_.erase(key); }

    // Each number is given once in the life of the process. They begin far above the counters that
    // hosts keep in their items: WM_MEASUREITEM has only the data and the command of an item.
    static ULONG_PTR NextNumber();

    Map::const_iterator begin() const { return items_.begin(); }
    Map::const_iterator end() const { return items_.end(); }

private:
    Map items_;
};

} // namespace vndesk
