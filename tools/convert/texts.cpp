// SPDX-License-Identifier: MIT
#include "convert/texts.h"

#include "convert/texts_tables.h"

namespace vndesk::convert {

const wchar_t* TextOf(Message message, console::Language language) {
    // In the order of Language.
    constexpr const wchar_t* const* kTables[] = {kEnglish, kVietnamese, kFrench};
    return kTables[static_cast<std::size_t>(language)][static_cast<std::size_t>(message)];
}

} // namespace vndesk::convert
