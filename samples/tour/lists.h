// SPDX-License-Identifier: MIT
// The lists that the program shows: a title, a statement, and a caption for each of its columns.
#pragma once
#include <span>

struct Column {
    const wchar_t* caption;
    int width;           // at 96 dots per inch
    bool number = false; // grouped in the Vietnamese way, at the right edge
};

struct List {
    const wchar_t* title;
    const wchar_t* statement;
    std::span<const Column> columns;
};

// A list of which the user may ask for a part: the statement ends where the condition follows.
struct Search {
    const wchar_t* table; // as the search dialog's field catalogue names it
    List found;
    const wchar_t* order;
};

extern const List kCustomers, kGoods, kKindsOfGoods, kProvinces, kStock, kReceivables;
extern const Search kFindCustomers, kFindGoods;
