// SPDX-License-Identifier: MIT
// Random values for tests of properties. Every run draws the same ones; VNDESK_SEED draws others,
// and what a test drew can be drawn again by the seed that it printed.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace vndesk::test {

class Random {
public:
    Random() : seed_(SeedOfRun()), engine_(seed_) { std::printf("VNDESK_SEED=%u\n", seed_); }

    // 0 to `count` - 1.
    unsigned Below(unsigned count) { return engine_() % count; }
    bool Chance(unsigned percent) { return Below(100) < percent; }

    template <class Choices> auto& Of(Choices& choices) {
        return choices[Below(static_cast<unsigned>(std::size(choices)))];
    }

    // Text with everything in it that means something to an engine or to a driver, and Vietnamese.
    std::wstring Text(unsigned mostPieces = 12) {
        static constexpr std::wstring_view kPieces[] = {
            L"'",          L"''",    L"\"", L"N'",     L"%",
            L"_",          L"[",     L"]",  L"{",      L"}",
            L"(",          L")",     L"#",  L"--",     L"/*",
            L"*/",         L";",     L",",  L"\\",     L"\\'",
            L"?",          L":a",    L"$1", L"$$",     L"{d '",
            L"E'",         L"\r\n",  L"\t", L" ",      L"`",
            L"|",          L"&",     L"=",  L"\u00A0", L"\u2019",
            L"\uFEFF",     L"a",     L"Z",  L"0",      L"-1.5",
            L"Nguyễn",     L"Đường", L"ơ",  L"\u1EC7", L"e\u0302\u0323",
            L"\U0001F600", L"中"};
        std::wstring text;
        for (unsigned i = Below(mostPieces + 1); i > 0; --i)
            text += Of(kPieces);
        return text;
    }

private:
    static unsigned SeedOfRun() {
        const char* given = std::getenv("VNDESK_SEED");
        return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : 20041231u;
    }

    unsigned seed_;
    std::mt19937 engine_;
};

} // namespace vndesk::test
