// SPDX-License-Identifier: MIT
// Text conversion beside its physical limit (moving the characters without mapping them) and the C
// library's own converter. Runs natively: 16-bit characters here are what hosts pass on Windows.
#include "kit/benchmark.h"
#include "kit/iconv.h"
#include "text/tcvn3_units.h"

#include <emmintrin.h>

#include <cstdio>
#include <cstring>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace bench;
using namespace vndesk;

// Words of ordinary prose; about a fifth of the letters are not ASCII.
constexpr const char16_t* kWords[] = {
    u"công", u"ty",   u"trách", u"nhiệm", u"hữu",   u"hạn",  u"người", u"sử",     u"dụng",
    u"mật",  u"khẩu", u"không", u"hợp",   u"lệ",    u"danh", u"mục",   u"khách",  u"hàng",
    u"đã",   u"bị",   u"xoá",   u"phiếu", u"nhập",  u"kho",  u"xuất",  u"ngày",   u"tháng",
    u"năm",  u"số",   u"tiền",  u"bằng",  u"chữ",   u"kế",   u"toán",  u"trưởng", u"thủ",
    u"quỹ",  u"lập",  u"biểu",  u"trong", u"tất",   u"cả",   u"các",   u"trường", u"cho",
    u"phép", u"chọn", u"theo",  u"nhóm",  u"quyền", u"chi",  u"nhánh", u"thanh",  u"xuân",
    u"in",   u"ra",   u"giao",  u"nhanh", u"ban",   u"sau",  u"mua"};

// Words in random order: a text that repeats within itself is learnt by the branch predictor.
std::u16string Prose(std::size_t length, unsigned seed = 20) {
    std::mt19937 random(seed);
    std::u16string text;
    while (text.size() < length) {
        text += kWords[random() % std::size(kWords)];
        text += u' ';
    }
    text.resize(length);
    return text;
}

void Widen(char16_t* out, const unsigned char* in, std::size_t length) {
    std::size_t i = 0;
    for (const __m128i zero = _mm_setzero_si128(); i + 16 <= length; i += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + i));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), _mm_unpacklo_epi8(bytes, zero));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i + 8), _mm_unpackhi_epi8(bytes, zero));
    }
    for (; i < length; ++i)
        out[i] = in[i];
}

void Narrow(unsigned char* out, const char16_t* in, std::size_t length) {
    std::size_t i = 0;
    for (; i + 16 <= length; i += 16) {
        const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + i));
        const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + i + 8));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i), _mm_packus_epi16(low, high));
    }
    for (; i < length; ++i)
        out[i] = static_cast<unsigned char>(in[i]);
}

struct Limits {
    double decode, decodeFaster, encode, encodeFaster;
};

// One text in all its forms, and room for what becomes of it.
struct Sample {
    Sample(std::size_t length, unsigned seed)
        : unicode(Prose(length, seed)), tcvn(length, u'\0'), out(length, u'\0'), bytes(length) {
        ConvertUnits(tcvn.data(), unicode.data(), length, kToTcvn3);
        Narrow(bytes.data(), tcvn.data(), length);
        ConvertUnits(out.data(), tcvn.data(), length, kToUnicode);
        if (out != unicode)
            throw std::runtime_error("the round trip has changed the text");
    }
    std::u16string unicode, tcvn, out;
    std::vector<unsigned char> bytes;
};

// With several texts each comes round only after all others: the processor has forgotten it by
// then, as it has never seen the texts of a host.
void Measure(Report& report, std::size_t length, std::size_t texts, const Limits& limits) {
    std::vector<Sample> samples;
    for (std::size_t i = 0; i < texts; ++i)
        samples.emplace_back(length, static_cast<unsigned>(20 + i));
    std::vector<unsigned char> narrow(length * 4 + 64);
    std::vector<char16_t> wide(length + 64);
    Iconv fromTcvn("UTF-16LE", "TCVN5712-1");
    Iconv toTcvn("TCVN5712-1", "UTF-16LE");

    const auto inTurn = [&samples](auto body) {
        return Each([&samples, body, next = std::size_t{0}]() mutable {
            Sample& text = samples[next];
            next = next + 1 == samples.size() ? 0 : next + 1;
            body(text);
            Keep(text.out[0]);
        });
    };
    const Work decode =
        inTurn([=](Sample& s) { ConvertUnits(s.out.data(), s.tcvn.data(), length, kToUnicode); });
    const Work encode =
        inTurn([=](Sample& s) { ConvertUnits(s.out.data(), s.unicode.data(), length, kToTcvn3); });
    const Work widen = inTurn([=](Sample& s) { Widen(s.out.data(), s.bytes.data(), length); });
    const Work narrowing = inTurn([=, &narrow](Sample& s) {
        Narrow(narrow.data(), s.unicode.data(), length);
        Keep(narrow[0]);
    });
    const Work iconvDecode = inTurn([=, &fromTcvn, &wide](Sample& s) {
        fromTcvn.Convert(s.bytes.data(), length, wide.data(), wide.size() * 2);
        Keep(wide[0]);
    });
    const Work iconvEncode = inTurn([=, &toTcvn, &narrow](Sample& s) {
        toTcvn.Convert(s.unicode.data(), length * 2, narrow.data(), narrow.size());
        Keep(narrow[0]);
    });

    const std::string size = std::to_string(length) +
                             (texts > 1 ? " characters, another text each time" : " characters");
    const auto kind = [texts](Target target) { return texts > 1 ? Target::Nothing : target; };
    report.Compare({"TCVN3 to Unicode, " + size, "widening without mapping", kind(Target::AtMost),
                    limits.decode, decode, widen});
    report.Compare({"TCVN3 to Unicode, " + size, "iconv", kind(Target::Faster), limits.decodeFaster,
                    decode, iconvDecode});
    report.Compare({"Unicode to TCVN3, " + size, "narrowing without mapping", kind(Target::AtMost),
                    limits.encode, encode, narrowing});
    report.Compare({"Unicode to TCVN3, " + size, "iconv", kind(Target::Faster), limits.encodeFaster,
                    encode, iconvEncode});
}

} // namespace

int main(int argc, char** argv) {
    try {
        Report report("text", argc, argv);
        Measure(report, 20, 1, {2.3, 15, 3, 9});
        Measure(report, 32000, 1, {4, 30, 6, 18});
        Measure(report, 32000, 20, {4, 30, 6, 18});
        return report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "text_bench: %s\n", error.what());
        return 1;
    }
}
