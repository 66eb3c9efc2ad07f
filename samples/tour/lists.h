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

extern const List kCustomers, kGoods, kKindsOfGoods, kProvinces, kStock, kReceivables;
