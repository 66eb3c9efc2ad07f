// SPDX-License-Identifier: MIT
#include "check/texts.h"

#include "check/texts_tables.h"

namespace vndesk::check {

namespace {

struct LanguageRow {
    const Words* words;
    const Frame* frame;
};

// In the order of Language.
constexpr LanguageRow kLanguages[] = {
    {kEnglish, &kEnglishFrame},
    {kVietnamese, &kVietnameseFrame},
    {kFrench, &kFrenchFrame},
};

const LanguageRow& RowOf(Language language) {
    return kLanguages[static_cast<std::size_t>(language)];
}

} // namespace

const Words& WordsOf(Id id, Language language) {
    return RowOf(language).words[static_cast<std::size_t>(id)];
}

const Frame& FrameOf(Language language) {
    return *RowOf(language).frame;
}

} // namespace vndesk::check
