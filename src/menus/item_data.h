// SPDX-License-Identifier: MIT
// What the library knows of a converted menu item. The item's own data is the number under which
// it is found here.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>

#include "menu_caption.h"

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

    HWND window = nullptr;
    HMENU menu = nullptr;
    UINT id = 0;
    bool captionedSeparator = false; // by its caption, not by its type
    OriginalItem original;
};

// A keyed collection: the key is the number as decimal text.
class CMyItemDatas {
public:
    using Map = std::map<std::wstring, std::unique_ptr<CMyItemData>>;

    // A key that is there already raises the duplicate-key error.
    CMyItemData& Add(const std::wstring& key);
    // Null when there is none.
    CMyItemData* Item(const std::wstring& key) const;
    long Count() const { return static_cast<long>(items_.size()); }
    void Remove(const std::wstring& key) { items_.erase(key); }

    // Numbers are given once in the life of a collection.
    ULONG_PTR NextNumber() { return ++lastNumber_; }

    Map::const_iterator begin() const { return items_.begin(); }
    Map::const_iterator end() const { return items_.end(); }

private:
    Map items_;
    ULONG_PTR lastNumber_ = 0;
};

} // namespace vndesk
