// SPDX-License-Identifier: MIT
// The one conversion that allocates; everything else of tcvn3.h is inline.
#include "text/tcvn3.h"

namespace vndesk {

std::wstring ToUncText(std::wstring_view text, long mode) {
    std::wstring result(text);
    ConvertText(result.data(), result.data(), result.size(), mode);
    return result;
}

} // namespace vndesk
