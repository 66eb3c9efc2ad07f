// SPDX-License-Identifier: MIT
#include "forms/keys/enter_rule.h"

#include <algorithm>

namespace vndesk {

namespace {

bool CanBeFilled(const EnterStop& stop) {
    return stop.kind == EnterStop::Field && stop.enabled;
}

// The first field of a part of the stops that fits; their number where none does.
template <class Fits>
size_t FindField(std::span<const EnterStop> stops, size_t from, size_t end, Fits fits) {
    for (size_t i = from; i < end; ++i)
        if (CanBeFilled(stops[i]) && fits(stops[i]))
            return i;
    return stops.size();
}

} // namespace

EnterStep AfterEnter(std::span<const EnterStop> stops, size_t from, bool always) {
    const size_t none = stops.size();
    // The fields of a form end at its default button.
    const auto confirm =
        static_cast<size_t>(std::ranges::find(stops, true, &EnterStop::confirms) - stops.begin());
    if (!always && from < none) {
        const EnterStop& here = stops[from];
        if (here.kind == EnterStop::Button)
            return {EnterStep::Press, from};
        const size_t next =
            FindField(stops, from + 1, confirm, [](const EnterStop&) { return true; });
        if (next < none && (here.goesOn || stops[next].empty))
            return {EnterStep::Focus, next};
    }
    if (confirm < none && stops[confirm].enabled)
        return {EnterStep::Press, confirm};
    // What is still missing is shown, where it is an empty field.
    const size_t empty =
        FindField(stops, 0, confirm, [](const EnterStop& stop) { return stop.empty; });
    if (empty < none)
        return {EnterStep::Focus, empty};
    return {};
}

} // namespace vndesk
