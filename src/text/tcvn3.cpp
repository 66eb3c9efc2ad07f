// SPDX-License-Identifier: MIT
#include "text/tcvn3.h"

#include <stdexcept>

namespace vndesk {

void ConvertText(wchar_t* out, const wchar_t* in, std::size_t length, long mode) {
    if (length > kMaxConvertLength)
        throw std::overflow_error("text is too long to convert");
    ConvertUnits(out, in, length, mode);
}

std::wstring ToUncText(std::wstring_view text, long mode) {
    std::wstring result(text);
    ConvertText(result.data(), result.data(), result.size(), mode);
    return result;
}

} // namespace vndesk
