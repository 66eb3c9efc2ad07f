// SPDX-License-Identifier: MIT
#include "ado/engine/bind.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "ado/text/number_cell.h"
#include "ado/text/utf8.h"

namespace vndesk::ado {

namespace {

constexpr std::int64_t kExactInDouble = 1LL << 53;
constexpr std::size_t kDigitsInDouble = 15;
constexpr std::size_t kLongText = 4000; // beyond it servers have other types

class Binder {
public:
    explicit Binder(OdbcText text) : utf8_(text == OdbcText::Utf8) {}

    BoundValue Bind(const ParameterValue& value) const {
        BoundValue bound = BindPresent(value);
        if (value.null) {
            bound.size = 1;
            bound.bytes.clear();
            bound.length = SQL_NULL_DATA;
        }
        bound.bytes.resize(std::max<std::size_t>(bound.bytes.size(), sizeof(wchar_t)));
        return bound;
    }

private:
    BoundValue BindPresent(const ParameterValue& value) const {
        switch (value.kind) {
        case ParameterKind::Integer:
            return Integer(value.integer);
        case ParameterKind::Double:
            return Plain(SQL_C_DOUBLE, SQL_DOUBLE, value.number);
        case ParameterKind::Decimal:
            return Decimal(value.decimal);
        case ParameterKind::Boolean:
            return Plain(SQL_C_BIT, SQL_BIT, static_cast<BYTE>(value.integer));
        case ParameterKind::Date:
            return Dated(SQL_TYPE_DATE, value.date);
        case ParameterKind::Time:
            return Dated(SQL_TYPE_TIME, value.date);
        case ParameterKind::TimeStamp:
            return Dated(SQL_TYPE_TIMESTAMP, value.date);
        case ParameterKind::Binary:
            return Binary(value.bytes);
        default:
            return Text(value.text);
        }
    }

    template <class T> static BoundValue Plain(SQLSMALLINT cType, SQLSMALLINT sqlType, T value) {
        BoundValue bound;
        bound.cType = cType;
        bound.sqlType = sqlType;
        bound.bytes.resize(sizeof value);
        std::memcpy(bound.bytes.data(), &value, sizeof value);
        bound.length = sizeof value;
        return bound;
    }

    // PostgreSQL's driver sends a large integer as a text, which takes the type of what it meets,
    // and that may be a smaller integer: a double meets all of them.
    BoundValue Integer(std::int64_t value) const {
        if (value == static_cast<std::int32_t>(value))
            return Plain(SQL_C_SLONG, SQL_INTEGER, static_cast<std::int32_t>(value));
        if (!utf8_ && value >= -kExactInDouble && value <= kExactInDouble)
            return Plain(SQL_C_DOUBLE, SQL_DOUBLE, static_cast<double>(value));
        return Plain(SQL_C_SBIGINT, SQL_BIGINT, value);
    }

    // As a text only where a double would lose digits, for the same reason.
    BoundValue Decimal(const std::string& decimal) const {
        if (const auto whole = ParseInteger(decimal))
            return Integer(*whole);
        const auto digits = static_cast<std::size_t>(std::count_if(
            decimal.begin(), decimal.end(), [](char ch) { return ch >= '0' && ch <= '9'; }));
        if (const auto number = ParseDouble(decimal); number && digits <= kDigitsInDouble)
            return Plain(SQL_C_DOUBLE, SQL_DOUBLE, *number);
        BoundValue bound = Characters(FromUtf8(decimal), SQL_NUMERIC);
        const std::size_t point = decimal.find('.');
        bound.size = digits;
        bound.digits =
            static_cast<SQLSMALLINT>(point == std::string::npos ? 0 : decimal.size() - point - 1);
        return bound;
    }

    // SQLite has no dates: they are texts there.
    BoundValue Dated(SQLSMALLINT type, const DateValue& date) const {
        return utf8_ ? Text(IsoText(date)) : Characters(IsoText(date), type);
    }

    BoundValue Text(const std::wstring& text) const {
        const bool isLong = text.size() > kLongText;
        if (utf8_)
            return Characters(text, isLong ? SQL_LONGVARCHAR : SQL_VARCHAR);
        return Characters(text, isLong ? SQL_WLONGVARCHAR : SQL_WVARCHAR);
    }

    BoundValue Characters(const std::wstring& text, SQLSMALLINT sqlType) const {
        BoundValue bound;
        bound.sqlType = sqlType;
        if (utf8_) {
            const std::string bytes = ToUtf8(text);
            bound.cType = SQL_C_CHAR;
            bound.bytes.reserve(bytes.size() + sizeof(wchar_t));
            bound.bytes.assign(bytes.begin(), bytes.end());
        } else {
            const auto* first = reinterpret_cast<const BYTE*>(text.data());
            bound.cType = SQL_C_WCHAR;
            bound.bytes.reserve((text.size() + 1) * sizeof(wchar_t));
            bound.bytes.assign(first, first + text.size() * sizeof(wchar_t));
        }
        bound.length = static_cast<SQLLEN>(bound.bytes.size());
        bound.size = std::max<std::size_t>(text.size(), 1);
        bound.bytes.resize(bound.bytes.size() + sizeof(wchar_t)); // some drivers look for an end
        return bound;
    }

    static BoundValue Binary(const std::vector<BYTE>& bytes) {
        BoundValue bound;
        bound.cType = SQL_C_BINARY;
        bound.sqlType = SQL_LONGVARBINARY;
        bound.bytes = bytes;
        bound.length = static_cast<SQLLEN>(bytes.size());
        bound.size = std::max<std::size_t>(bytes.size(), 1);
        return bound;
    }

    const bool utf8_;
};

} // namespace

std::vector<BoundValue> BindableValues(const std::vector<ParameterValue>& values, OdbcText text) {
    const Binder binder(text);
    std::vector<BoundValue> bound;
    bound.reserve(values.size());
    for (const ParameterValue& value : values)
        bound.push_back(binder.Bind(value));
    return bound;
}

void Prepare(OdbcStatement& running, std::wstring_view statement) {
    if (running.Text() == OdbcText::Utf8) {
        std::string bytes = ToUtf8(statement);
        running.Check(SQLPrepare(running.Handle(), reinterpret_cast<SQLCHAR*>(bytes.data()),
                                 static_cast<SQLINTEGER>(bytes.size())));
    } else {
        std::wstring wide(statement);
        running.Check(SQLPrepareW(running.Handle(), reinterpret_cast<SQLWCHAR*>(wide.data()),
                                  static_cast<SQLINTEGER>(wide.size())));
    }
}

void ExecuteBound(OdbcStatement& running, std::vector<BoundValue>& values) {
    SQLSMALLINT markers = 0;
    running.Check(SQLNumParams(running.Handle(), &markers));
    if (values.size() > static_cast<std::size_t>(markers))
        throw DriverError(
            {{E_FAIL,
              L"The statement has " + std::to_wstring(markers) + L" parameter markers, but " +
                  std::to_wstring(values.size()) + L" values were given.",
              L"07002", 0}});
    SQLUSMALLINT number = 0;
    for (BoundValue& value : values)
        running.Check(SQLBindParameter(running.Handle(), ++number, SQL_PARAM_INPUT, value.cType,
                                       value.sqlType, value.size, value.digits, value.bytes.data(),
                                       static_cast<SQLLEN>(value.bytes.size()), &value.length));
    running.Check(SQLExecute(running.Handle()));
}

} // namespace vndesk::ado
