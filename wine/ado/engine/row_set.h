// SPDX-License-Identifier: MIT
// The rows of a statement, all in memory: columns, small cells, and one arena for text and bytes.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vndesk::ado {

enum class ColumnKind { Integer, Double, Boolean, Date, Text, Binary };

struct ColumnInfo {
    std::wstring name;
    ColumnKind kind;
    long adoType; // DataTypeEnum
    LONGLONG definedSize;
};

enum class CellKind : std::uint8_t { Null, Integer, Double, Boolean, Date, Text, Binary };

struct Cell {
    union {
        std::int32_t integer;
        double number; // Double and Date
        bool truth;
        const wchar_t* text;
        const BYTE* bytes;
    };
    std::uint32_t length; // of text in characters, of bytes
    CellKind kind;
};

// Memory that is given back all at once.
class Arena {
public:
    // Room for `count` wide characters; UnusedText gives back the end of the last piece.
    wchar_t* Text(std::size_t count);
    void UnusedText(std::size_t count) noexcept { used_ -= count; }
    BYTE* Bytes(std::size_t count) { return reinterpret_cast<BYTE*>(Text((count + 1) / 2)); }

private:
    std::vector<std::unique_ptr<wchar_t[]>> blocks_;
    std::size_t used_ = 0;
    std::size_t size_ = 0;
};

class RowSet {
public:
    static constexpr std::size_t kBlockRows = 100;

    explicit RowSet(std::vector<ColumnInfo> columns) : columns_(std::move(columns)) {}
    RowSet(const RowSet&) = delete;
    RowSet& operator=(const RowSet&) = delete;

    const std::vector<ColumnInfo>& Columns() const { return columns_; }
    std::size_t RowCount() const { return rowCount_; }
    const Cell& At(std::size_t row, std::size_t column) const {
        return blocks_[row / kBlockRows][row % kBlockRows * columns_.size() + column];
    }

    // Filling: the new row's cells, all null.
    Cell* AddRow();
    Arena& Memory() { return arena_; }

private:
    std::vector<ColumnInfo> columns_;
    std::vector<std::unique_ptr<Cell[]>> blocks_;
    std::size_t rowCount_ = 0;
    Arena arena_;
};

// An empty `value` becomes the cell's value. Throws std::bad_alloc.
void CellToVariant(const Cell& cell, VARIANT& value);

} // namespace vndesk::ado
