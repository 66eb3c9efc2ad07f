// SPDX-License-Identifier: MIT
#include "data/connect/ado_value.h"

#include <algorithm>

#include "comkit/base/bstr.h"

namespace vndesk {

namespace {

// The longest text that every provider takes as adVarWChar.
constexpr std::size_t kMaxVarWChar = 4000;

AdoValue ToAdo(const std::optional<long>& number) {
    AdoValue value{adInteger, 0};
    if (number)
        value.value = *number;
    return value;
}

AdoValue ToAdo(const std::optional<double>& number) {
    AdoValue value{adDouble, 0};
    if (number)
        value.value = *number;
    return value;
}

AdoValue ToAdo(const std::optional<std::wstring>& text) {
    const std::size_t length = text ? text->size() : 0;
    AdoValue value{length > kMaxVarWChar ? adLongVarWChar : adVarWChar,
                   static_cast<long>(std::max<std::size_t>(length, 1))};
    if (text) {
        value.value.Clear();
        V_BSTR(&value.value) = ToBstr(*text);
        V_VT(&value.value) = VT_BSTR;
    }
    return value;
}

template <class Time> AdoValue Dated(DataTypeEnum type, const std::optional<Time>& time) {
    AdoValue value{type, 0};
    if (time)
        value.value = _variant_t(time->days, VT_DATE);
    return value;
}

AdoValue ToAdo(const std::optional<Moment>& moment) {
    return Dated(adDBTimeStamp, moment);
}

AdoValue ToAdo(const std::optional<Day>& day) {
    return Dated(adDBDate, day);
}

} // namespace

AdoValue ToAdoValue(const BoundValue& bound) {
    return std::visit([](const auto& given) { return ToAdo(given); }, bound);
}

} // namespace vndesk
