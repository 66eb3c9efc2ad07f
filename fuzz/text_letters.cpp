// SPDX-License-Identifier: MIT
// A text and a pattern. Normal forms, letter case, order and matching agree with each other.
#include "support/input.h"

#include "text/letters/accents.h"
#include "text/letters/collation.h"
#include "text/letters/letter_case.h"
#include "text/letters/match.h"
#include "text/letters/normal_form.h"
#include "text/letters/tone_place.h"

namespace vndesk::fuzz {

namespace {

constexpr Sensitivity kAll[] = {Sensitivity::Sensitive, Sensitivity::Smart,
                                Sensitivity::Insensitive};

void CheckForms(const std::wstring& text) {
    const std::wstring composed = ToNfc(text), apart = ToNfd(text);
    MUST(ToNfc(composed) == composed && ToNfd(apart) == apart);
    MUST(ToNfc(apart) == composed && ToNfd(composed) == apart);
    MUST(IsSurelyNfc(text) ? composed == text : true);
    MUST(RemoveAccents(composed) == RemoveAccents(apart));
    const std::wstring plain = RemoveAccents(text);
    MUST(RemoveAccents(plain) == plain && plain.size() <= text.size());
    for (const TonePlace place : {TonePlace::Old, TonePlace::New}) {
        const std::wstring moved = MoveTones(composed, place);
        MUST(moved.size() == composed.size() && MoveTones(moved, place) == moved);
        MUST(RemoveAccents(moved) == RemoveAccents(composed));
        MUST(Compare(moved, composed) == 0);
    }
}

void CheckCase(const std::wstring& text) {
    const std::wstring upper = ToUpper(text), lower = ToLower(text), title = ToTitle(text);
    MUST(upper.size() == text.size() && ToUpper(upper) == upper && ToLower(lower) == lower);
    MUST(ToTitle(title) == title);
    for (std::size_t i = 0; i < text.size(); ++i)
        MUST(title[i] == upper[i] || title[i] == lower[i]);
}

void CheckOrder(const std::wstring& left, const std::wstring& right) {
    const int order = Compare(left, right);
    MUST(order == -Compare(right, left) && Compare(left, left) == 0);
    const std::wstring first = SortKey(left), second = SortKey(right);
    MUST((order < 0) == (first < second) && (order == 0) == (first == second));
    MUST(Compare(ToNfd(left), left) == 0);
}

void CheckMatch(const std::wstring& text, const std::wstring& pattern) {
    Match before = Match::None;
    for (const Sensitivity sensitivity : kAll) {
        const Match found = Matches(text, pattern, sensitivity);
        // What fewer accents find, more do not lose.
        MUST(found >= before);
        before = found;
        MUST(Matches(ToNfd(text), pattern, sensitivity) == found);
        MUST(Matches(text, ToNfd(pattern), sensitivity) == found);
        MUST(Matches(text, text, sensitivity) == Match::AtStartExactly);
        MUST(Matches(text + pattern, L"", sensitivity) == Match::AtStartExactly);
    }
    if (Compare(text, pattern) == 0)
        MUST(text.empty() || SortKey(text) == SortKey(pattern));
}

} // namespace

void RunOne(Input& input) {
    const std::wstring text = input.Text(), pattern = input.Text();
    for (const std::wstring& each : {text, pattern}) {
        CheckForms(each);
        CheckCase(each);
    }
    CheckOrder(text, pattern);
    CheckMatch(text, pattern);
}

} // namespace vndesk::fuzz
