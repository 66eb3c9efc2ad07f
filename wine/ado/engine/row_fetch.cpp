// SPDX-License-Identifier: MIT
#include "ado/engine/row_fetch.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string_view>

#include "ado/engine/column_type.h"
#include "ado/text/date_value.h"
#include "ado/text/number_cell.h"
#include "ado/text/utf8.h"

namespace vndesk::ado {

namespace {

// Every value but bytes crosses ODBC as text. That is what the drivers hold anyway, and a value
// that does not fit its column's declared type survives as text instead of becoming 0.
class Fetcher {
public:
    Fetcher(OdbcStatement& statement, std::vector<std::wstring> names)
        : statement_(statement), names_(std::move(names)),
          unit_(statement.Text() == OdbcText::Utf8 ? 1 : sizeof(wchar_t)),
          textType_(statement.Text() == OdbcText::Utf8 ? SQL_C_CHAR : SQL_C_WCHAR) {}

    std::shared_ptr<const RowSet> Run() {
        Describe();
        // Blocks are read again row by row when a cell proves too long for its buffer.
        if (!hasBinary_ && statement_.IsScrollable())
            FetchBlocks();
        else
            FetchSingly(SQL_FETCH_NEXT, 0);
        return rows_;
    }

private:
    // Wine 10 mixes up the lengths of a block's rows in 32-bit programs: it takes them for 64-bit
    // numbers. There each row is a block of its own.
    static constexpr std::size_t kBlock = sizeof(void*) == 8 ? RowSet::kBlockRows : 1;
    static constexpr SQLULEN kMaxBoundText = 255;

    struct Bound {
        std::size_t width; // bytes of one cell
        std::vector<BYTE> cells;
        std::vector<SQLLEN> lengths;
    };

    void Describe() {
        std::vector<ColumnInfo> columns;
        const int count = statement_.ColumnCount();
        for (int i = 1; i <= count; ++i) {
            const OdbcColumn column = statement_.Column(i);
            columns.push_back(DescribeColumn(column));
            if (const auto place = static_cast<std::size_t>(i - 1); place < names_.size())
                columns.back().name = names_[place];
            hasBinary_ = hasBinary_ || columns.back().kind == ColumnKind::Binary;
            const bool text = columns.back().kind == ColumnKind::Text;
            const SQLULEN size = std::clamp<SQLULEN>(column.size, 32, kMaxBoundText);
            widths_.push_back((text ? size * (unit_ == 1 ? 3 : unit_) : 48 * unit_) + unit_);
        }
        rows_ = std::make_shared<RowSet>(std::move(columns));
    }

    std::size_t ColumnCount() const { return widths_.size(); }

    // Many rows at a time; in the end one at a time, while the columns are still bound: Wine 10
    // holds a length for each row of each column, and frees those of the first column alone.
    class RowArray {
    public:
        RowArray(Fetcher& fetcher, SQLULEN rows) : statement_(fetcher.statement_.Handle()) {
            fetcher.SetAttribute(SQL_ATTR_ROW_ARRAY_SIZE, rows);
        }
        ~RowArray() {
            SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), 0);
        }
        RowArray(const RowArray&) = delete;
        RowArray& operator=(const RowArray&) = delete;

    private:
        const SQLHSTMT statement_;
    };

    void FetchBlocks() {
        std::vector<Bound> bound(ColumnCount());
        if (StoreBlocks(bound))
            return;
        SetAttribute(SQL_ATTR_ROW_ARRAY_SIZE, 1); // in case it has failed
        // One by one: Wine 10 keeps pointers of its own over SQLFreeStmt(SQL_UNBIND).
        for (std::size_t i = 0; i < bound.size(); ++i)
            SQLBindCol(statement_.Handle(), static_cast<SQLUSMALLINT>(i + 1), textType_, nullptr, 0,
                       nullptr);
        FetchSingly(SQL_FETCH_ABSOLUTE, static_cast<SQLLEN>(rows_->RowCount() + 1));
    }

    // False when a cell had no room: its block is not stored, and all columns are still bound.
    bool StoreBlocks(std::vector<Bound>& bound) {
        const RowArray array(*this, kBlock);
        statement_.Check(
            SQLSetStmtAttr(statement_.Handle(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0));
        for (std::size_t i = 0; i < bound.size(); ++i) {
            bound[i].width = widths_[i];
            bound[i].cells.resize(widths_[i] * kBlock);
            bound[i].lengths.resize(kBlock);
            statement_.Check(SQLBindCol(statement_.Handle(), static_cast<SQLUSMALLINT>(i + 1),
                                        textType_, bound[i].cells.data(),
                                        static_cast<SQLLEN>(widths_[i]), bound[i].lengths.data()));
        }
        while (statement_.Fetch(SQL_FETCH_NEXT, 0) && fetched_ > 0) {
            if (!AreComplete(bound, fetched_))
                return false;
            StoreBlock(bound, fetched_);
        }
        return true;
    }

    void SetAttribute(SQLINTEGER attribute, SQLULEN value) {
        statement_.Check(
            SQLSetStmtAttr(statement_.Handle(), attribute, reinterpret_cast<SQLPOINTER>(value), 0));
    }

    bool AreComplete(const std::vector<Bound>& bound, SQLULEN rows) const {
        for (const Bound& column : bound)
            for (SQLULEN row = 0; row < rows; ++row) {
                const SQLLEN length = column.lengths[row];
                if (length == SQL_NO_TOTAL ||
                    (length > 0 && static_cast<std::size_t>(length) > column.width - unit_))
                    return false;
            }
        return true;
    }

    void StoreBlock(const std::vector<Bound>& bound, SQLULEN rows) {
        for (SQLULEN row = 0; row < rows; ++row) {
            Cell* cells = rows_->AddRow();
            for (std::size_t i = 0; i < bound.size(); ++i)
                if (bound[i].lengths[row] >= 0)
                    StoreText(cells[i], i, bound[i].cells.data() + row * bound[i].width,
                              static_cast<std::size_t>(bound[i].lengths[row]));
        }
    }

    void FetchSingly(SQLSMALLINT first, SQLLEN offset) {
        std::vector<BYTE> value;
        for (bool more = statement_.Fetch(first, offset); more;
             more = statement_.Fetch(SQL_FETCH_NEXT, 0)) {
            Cell* cells = rows_->AddRow();
            for (std::size_t i = 0; i < ColumnCount(); ++i) {
                const bool binary = rows_->Columns()[i].kind == ColumnKind::Binary;
                if (!ReadWhole(i, binary, value))
                    continue;
                if (binary)
                    StoreBytes(cells[i], value);
                else
                    StoreText(cells[i], i, value.data(), value.size());
            }
        }
    }

    // False for null.
    bool ReadWhole(std::size_t column, bool binary, std::vector<BYTE>& value) const {
        const std::size_t ending = binary ? 0 : unit_;
        std::size_t have = 0;
        value.resize(4096);
        for (;;) {
            SQLLEN length = 0;
            const SQLRETURN result =
                SQLGetData(statement_.Handle(), static_cast<SQLUSMALLINT>(column + 1),
                           binary ? SQL_C_BINARY : textType_, value.data() + have,
                           static_cast<SQLLEN>(value.size() - have), &length);
            statement_.Check(result);
            if (result == SQL_NO_DATA)
                break;
            if (length == SQL_NULL_DATA)
                return false;
            const std::size_t room = value.size() - have - ending;
            if (length != SQL_NO_TOTAL && static_cast<std::size_t>(length) <= room) {
                have += static_cast<std::size_t>(length);
                break;
            }
            have += room;
            // The rest's length is known from most drivers: one more call is enough then.
            const std::size_t rest =
                length == SQL_NO_TOTAL ? have : static_cast<std::size_t>(length) - room;
            value.resize(have + rest + ending);
        }
        value.resize(have);
        return true;
    }

    void StoreBytes(Cell& cell, const std::vector<BYTE>& value) {
        BYTE* bytes = rows_->Memory().Bytes(value.size());
        std::copy(value.begin(), value.end(), bytes);
        cell.kind = CellKind::Binary;
        cell.bytes = bytes;
        cell.length = static_cast<std::uint32_t>(value.size());
    }

    void StoreText(Cell& cell, std::size_t column, const BYTE* value, std::size_t size) {
        char ascii[64];
        const ColumnKind kind = rows_->Columns()[column].kind;
        if (kind != ColumnKind::Text)
            if (const auto text = AsciiText(value, size, ascii))
                if (StoreTyped(cell, kind, *text))
                    return;
        wchar_t* text;
        if (unit_ == 1) {
            text = rows_->Memory().Text(size);
            const std::size_t length =
                DecodeUtf8({reinterpret_cast<const char*>(value), size}, text);
            rows_->Memory().UnusedText(size - length);
            size = length;
        } else {
            size /= unit_;
            text = rows_->Memory().Text(size);
            std::memcpy(text, value, size * unit_);
        }
        cell.kind = CellKind::Text;
        cell.text = text;
        cell.length = static_cast<std::uint32_t>(size);
    }

    // Short plain text as bytes; nothing that is longer or has other letters is a number or a date.
    std::optional<std::string_view> AsciiText(const BYTE* value, std::size_t size,
                                              char (&buffer)[64]) const {
        if (unit_ == 1)
            return std::string_view(reinterpret_cast<const char*>(value), size);
        const std::size_t length = size / unit_;
        if (length > sizeof buffer)
            return std::nullopt;
        for (std::size_t i = 0; i < length; ++i) {
            wchar_t ch;
            std::memcpy(&ch, value + i * unit_, unit_);
            if (ch > 0x7E)
                return std::nullopt;
            buffer[i] = static_cast<char>(ch);
        }
        return std::string_view(buffer, length);
    }

    static bool StoreTyped(Cell& cell, ColumnKind kind, std::string_view text) {
        switch (kind) {
        case ColumnKind::Integer:
            if (const auto value = ParseInteger(text);
                value && *value == static_cast<int>(*value)) {
                cell.kind = CellKind::Integer;
                cell.integer = static_cast<std::int32_t>(*value);
                return true;
            }
            [[fallthrough]]; // too large for hosts' integers, or not whole
        case ColumnKind::Double:
            if (const auto value = ParseDouble(text)) {
                cell.kind = CellKind::Double;
                cell.number = *value;
                return true;
            }
            return false;
        case ColumnKind::Boolean:
            if (const auto value = ParseBoolean(text)) {
                cell.kind = CellKind::Boolean;
                cell.truth = *value;
                return true;
            }
            return false;
        case ColumnKind::Date:
            if (const auto value = ParseIsoDate(text)) {
                cell.kind = CellKind::Date;
                cell.number = ToOleDate(*value);
                return true;
            }
            return false;
        default:
            return false;
        }
    }

    OdbcStatement& statement_;
    const std::vector<std::wstring> names_;
    const std::size_t unit_; // bytes of a character in the driver's text
    const SQLSMALLINT textType_;
    std::shared_ptr<RowSet> rows_;
    std::vector<std::size_t> widths_;
    SQLULEN fetched_ = 0; // rows of the last block; the driver writes it
    bool hasBinary_ = false;
};

} // namespace

std::shared_ptr<const RowSet> FetchRows(OdbcStatement& statement, std::vector<std::wstring> names) {
    return Fetcher(statement, std::move(names)).Run();
}

} // namespace vndesk::ado
