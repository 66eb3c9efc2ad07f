// SPDX-License-Identifier: MIT
#include "data/connect/engine.h"

#include <comutil.h>

#include <cmath>

#include "comkit/base/com_error.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"

namespace vndesk {

namespace {

constexpr double kSecondsOfADay = 86400;

} // namespace

Engine EngineOf(const Database& database) {
    if (const Dialect* dialect = database.Dialect())
        return dialect->engine;
    std::wstring name;
    Trap([&] {
        if (!database.connection)
            return;
        ComPtr<Properties> properties;
        ComPtr<Property> property;
        _variant_t value;
        CheckHr(database.connection->get_Properties(&properties));
        CheckHr(properties->get_Item(_variant_t(L"DBMS Name"), &property));
        CheckHr(property->get_Value(&value));
        name = NullToText(value);
    });
    return EngineNamed(name, database.kind);
}

Moment MachineTime() {
    SYSTEMTIME time;
    GetSystemTime(&time);
    time.wMilliseconds = 0;
    Moment moment;
    SystemTimeToVariantTime(&time, &moment.days);
    return moment;
}

Moment ServerTime(const Database& database) {
    const std::wstring_view now = UtcNow(EngineOf(database));
    if (now.empty())
        return MachineTime();
    Recordset rows;
    rows.Create(database);
    rows.Open(StatementWriter(database.Style())
              << L"Select " << AsGiven{now} << L" As [ServerNow]");
    const std::optional<Moment> moment = NullToMoment(rows.Value(0L));
    if (!moment)
        throw ComError(DISP_E_TYPEMISMATCH, L"The server does not tell its time.");
    // Providers keep a second whole, a double does not.
    return {std::round(moment->days * kSecondsOfADay) / kSecondsOfADay};
}

} // namespace vndesk
