// SPDX-License-Identifier: MIT
// Matching, folding, numbers in words; natively also conversion beside the C library's own. Texts
// of 16-bit characters are what hosts pass.
#include "kit/benchmark.h"
#include "text/encodings/cp1258_units.h"
#include "text/encodings/tcvn3_encoding.h"
#include "text/letters/accents.h"
#include "text/letters/accents_units.h"
#include "text/letters/collation.h"
#include "text/letters/match.h"
#include "text/numbers/number_words.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#ifdef _WIN32
#include "vndesk_idl.h"
#include <comutil.h>
#else
#include "kit/iconv.h"
#endif

namespace {

using namespace bench;
using namespace vndesk;

constexpr std::size_t kNames = 100000;

const wchar_t* const kFamily[] = {L"Nguyễn", L"Trần", L"Lê",    L"Phạm", L"Hoàng", L"Huỳnh",
                                  L"Phan",   L"Vũ",   L"Võ",    L"Đặng", L"Bùi",   L"Đỗ",
                                  L"Hồ",     L"Ngô",  L"Dương", L"Lý"};
const wchar_t* const kMiddle[] = {L"Văn",  L"Thị",  L"Hữu",   L"Đức",
                                  L"Minh", L"Quốc", L"Thanh", L"Ngọc"};
const wchar_t* const kGiven[] = {L"An",    L"Bình",  L"Cường", L"Dũng",  L"Giang", L"Hà",   L"Hoà",
                                 L"Hương", L"Khánh", L"Lan",   L"Mai",   L"Nam",   L"Oanh", L"Phúc",
                                 L"Quý",   L"Sơn",   L"Thuỷ",  L"Tuyết", L"Vân",   L"Xuân", L"Yến"};

std::vector<std::wstring> Names() {
    std::mt19937 random(20);
    std::vector<std::wstring> names(kNames);
    for (std::wstring& name : names)
        name = std::wstring(kFamily[random() % std::size(kFamily)]) + L" " +
               kMiddle[random() % std::size(kMiddle)] + L" " +
               kMiddle[random() % std::size(kMiddle)] + L" " +
               kGiven[random() % std::size(kGiven)] + L" " + std::to_wstring(random() % 1000);
    return names;
}

// As a list keeps them: folded once, one behind the other.
struct FoldedNames {
    explicit FoldedNames(const std::vector<std::wstring>& names) {
        for (const std::wstring& name : names) {
            AppendFolded(letters, name);
            ends.push_back(letters.size());
        }
    }
    FoldedText letters;
    std::vector<std::size_t> ends;
};

double Milliseconds(Work work) {
    std::vector<double> times;
    for (int i = 0; i < 25; ++i)
        times.push_back(work(1) / 1e6);
    std::nth_element(times.begin(), times.begin() + 12, times.end());
    return times[12];
}

void MeasureNames(Report& report) {
    const std::vector<std::wstring> names = Names();
    const FoldedNames folded(names);
    for (const wchar_t* typed : {L"n", L"nguyen", L"thị", L"hoà 7", L"không có"}) {
        for (const auto sensitivity : {Sensitivity::Smart, Sensitivity::Sensitive}) {
            std::size_t found = 0;
            const double taken = Milliseconds(Each([&] {
                const SearchPattern pattern(typed, sensitivity);
                std::size_t begin = 0;
                found = 0;
                for (const std::size_t end : folded.ends) {
                    found +=
                        pattern.In({folded.letters.data() + begin, end - begin}) != Match::None;
                    begin = end;
                }
                Keep(found);
            }));
            char area[96];
            std::snprintf(area, sizeof area, "one key of %u in 100000 names, %s, %zu found",
                          static_cast<unsigned>(std::wcslen(typed)),
                          sensitivity == Sensitivity::Smart ? "smart" : "sensitive", found);
            report.Note({area, "ms", taken, 30});
        }
    }
    report.Note({"one key in 100000 names that are folded each time", "ms", Milliseconds(Each([&] {
                     const SearchPattern pattern(L"thi", Sensitivity::Smart);
                     FoldedText letters;
                     std::size_t found = 0;
                     for (const std::wstring& name : names) {
                         letters.clear();
                         AppendFolded(letters, name);
                         found += pattern.In(letters) != Match::None;
                     }
                     Keep(found);
                 })),
                 0});
    report.Compare({"100000 names folded", "copying them", Target::AtMost, 6, Each([&] {
                        const FoldedNames fresh(names);
                        Keep(fresh.letters[0]);
                    }),
                    Each([&] {
                        const std::vector<std::wstring> copy(names);
                        Keep(copy[0]);
                    })});
    report.Compare({"accents of 100000 names dropped", "copying them", Target::AtMost, 6, Each([&] {
                        std::vector<std::wstring> plain;
                        plain.reserve(names.size());
                        for (const std::wstring& name : names)
                            plain.push_back(RemoveAccents(name));
                        Keep(plain[0]);
                    }),
                    Each([&] {
                        const std::vector<std::wstring> copy(names);
                        Keep(copy[0]);
                    })});
    std::vector<std::wstring> keys(names.size());
    report.Note({"100000 sort keys", "ms", Milliseconds(Each([&] {
                     for (std::size_t i = 0; i < names.size(); ++i)
                         keys[i] = SortKey(names[i]);
                 })),
                 0});
}

std::u16string Prose(std::size_t length) {
    std::mt19937 random(20);
    std::u16string text;
    while (text.size() < length) {
        for (const wchar_t* const* words : {kFamily, kMiddle, kGiven})
            for (const wchar_t ch : std::wstring(words[random() % 8]) + L" ")
                text.push_back(static_cast<char16_t>(ch));
        text += u"va cac khach hang ";
    }
    text.resize(length);
    return text;
}

void MeasureAccents(Report& report) {
    const std::u16string text = Prose(32000);
    std::u16string out(text.size(), u'\0');
    report.Compare({"accents dropped, 32000 characters", "copying them", Target::AtMost, 6,
                    Each([&] {
                        DropAccents(out.data(), text.data(), text.size());
                        Keep(out[0]);
                    }),
                    Each([&] {
                        std::memcpy(out.data(), text.data(), text.size() * 2);
                        Keep(out[0]);
                    })});
}

double Microseconds(Work work) {
    return Milliseconds([&](std::size_t) { return work(1000); });
}

void MeasureWords(Report& report) {
    const ExactNumber amount = FromInteger(987654321);
    const Currency& dong = *FindCurrency(L"VND");
    report.Note({"amount in words", "us",
                 Microseconds(Each([&] { Keep(AmountToWords(amount, dong, 65)[0]); })), 2});
}

#ifdef _WIN32
void MeasureCalls(Report& report) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IText* text = nullptr;
    if (FAILED(CoCreateInstance(__uuidof(clsText), nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(&text))))
        throw std::runtime_error("the library is not registered");
    const _bstr_t currency(L"VND");
    _variant_t money;
    V_VT(&money) = VT_CY;
    V_CY(&money).int64 = 9876543210000;
    for (const auto& [name, value] :
         {std::pair("Long", _variant_t(987654321L)), std::pair("Currency", money),
          std::pair("Double with decimals", _variant_t(1234567.891))})
        report.Note({std::string("AmountToWords called, ") + name, "us", Microseconds(Each([&] {
                         BSTR words = nullptr;
                         text->AmountToWords(value, currency, 65, &words);
                         SysFreeString(words);
                     })),
                     2});
    text->Release();
}
#else
void MeasureCodePage(Report& report, std::size_t length) {
    const std::u16string text = Prose(length);
    std::u16string page(length * 2 + 1, u'\0'), out(length * 2 + 1, u'\0');
    page.resize(cp1258::Encode(page.data(), text.data(), length, [](std::size_t) {}));
    const std::string bytes(page.begin(), page.end());
    std::string room(length * 8 + 64, '\0');
    Iconv fromPage("UTF-16LE", "CP1258"), toPage("CP1258", "UTF-16LE");
    const std::string size = std::to_string(length) + " characters";
    report.Compare({"code page 1258 to Unicode, " + size, "iconv", Target::Faster, 10, Each([&] {
                        cp1258::Decode(out.data(), page.data(), page.size(), [](std::size_t) {});
                        Keep(out[0]);
                    }),
                    Each([&] {
                        fromPage.Convert(bytes.data(), bytes.size(), room.data(), room.size());
                        Keep(room[0]);
                    })});
    report.Compare({"Unicode to code page 1258, " + size, "iconv", Target::Faster, 10, Each([&] {
                        cp1258::Encode(out.data(), text.data(), length, [](std::size_t) {});
                        Keep(out[0]);
                    }),
                    Each([&] {
                        toPage.Convert(text.data(), length * 2, room.data(), room.size());
                        Keep(room[0]);
                    })});
}

void MeasureTcvn3(Report& report, std::size_t length) {
    std::u16string text = Prose(length), tcvn3(length, u'\0'), out(length, u'\0');
    std::transform(text.begin(), text.end(), text.begin(), [](char16_t ch) {
        return ch >= 0x80 ? static_cast<char16_t>(ToLowerLetter(ch)) : ch;
    });
    tcvn3::Encode(tcvn3.data(), text.data(), length);
    const std::string bytes(tcvn3.begin(), tcvn3.end());
    std::string room(length * 8 + 64, '\0');
    Iconv fromTcvn("UTF-16LE", "TCVN"), toTcvn("TCVN", "UTF-16LE");
    const std::string size = std::to_string(length) + " characters";
    report.Compare({"TCVN3 to Unicode, " + size, "iconv", Target::Faster, 10, Each([&] {
                        ConvertUnits(out.data(), tcvn3.data(), length, kToUnicode);
                        Keep(out[0]);
                    }),
                    Each([&] {
                        fromTcvn.Convert(bytes.data(), length, room.data(), room.size());
                        Keep(room[0]);
                    })});
    report.Compare({"Unicode to TCVN3 with losses told, " + size, "iconv", Target::Faster, 10,
                    Each([&] { Keep(tcvn3::Encode(out.data(), text.data(), length)); }), Each([&] {
                        toTcvn.Convert(text.data(), length * 2, room.data(), room.size());
                        Keep(room[0]);
                    })});
}
#endif

} // namespace

int main(int argc, char** argv) {
    try {
        Report report("vietnamese", argc, argv);
        MeasureNames(report);
        MeasureAccents(report);
        MeasureWords(report);
#ifdef _WIN32
        MeasureCalls(report);
#else
        for (const std::size_t length : {20, 32000}) {
            MeasureTcvn3(report, length);
            MeasureCodePage(report, length);
        }
#endif
        return report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vietnamese_bench: %s\n", error.what());
        return 1;
    }
}
