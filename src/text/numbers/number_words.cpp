// SPDX-License-Identifier: MIT
#include "text/numbers/number_words.h"

#include "text/ascii_text.h"
#include "text/letters/letter_case.h"

namespace vndesk {

namespace {

constexpr std::wstring_view kDigits[] = {L"không", L"một", L"hai", L"ba",  L"bốn",
                                         L"năm",   L"sáu", L"bảy", L"tám", L"chín"};

constexpr Currency kCurrencies[] = {
    {L"VND", L"đồng", L""},
    {L"USD", L"đô la Mỹ", L"xu"},
    {L"EUR", L"euro", L"xu"},
    {L"GBP", L"bảng Anh", L"xu"},
    {L"JPY", L"yên Nhật", L""},
    {L"CNY", L"nhân dân tệ", L"xu"},
    {L"KRW", L"won Hàn Quốc", L""},
    {L"THB", L"bạt Thái", L"xu"},
    {L"SGD", L"đô la Singapore", L"xu"},
    {L"HKD", L"đô la Hồng Kông", L"xu"},
    {L"TWD", L"đô la Đài Loan", L"xu"},
    {L"AUD", L"đô la Úc", L"xu"},
    {L"CAD", L"đô la Canada", L"xu"},
    {L"CHF", L"franc Thuỵ Sĩ", L"xu"},
    {L"LAK", L"kíp Lào", L""},
    {L"KHR", L"riel Campuchia", L""},
};

class Reader {
public:
    explicit Reader(unsigned options) : options_(options) {}

    void Add(std::wstring_view word) {
        if (end_ != words_)
            *end_++ = L' ';
        for (const wchar_t letter : word)
            *end_++ = letter;
    }
    void AddOdd() { Add(Has(kWordsLinh) ? L"linh" : L"lẻ"); }

    void AddSign(bool negative) {
        if (negative)
            Add(L"âm");
    }

    void AddWhole(std::string_view digits) {
        if (digits.empty())
            return Add(kDigits[0]);
        // Of nine digits each, counted from the right; the first one may be shorter.
        const std::size_t groups = (digits.size() + 8) / 9;
        std::size_t length = digits.size() - (groups - 1) * 9;
        bool higher = false; // something was read before
        for (std::size_t group = groups; group-- > 0; length = 9) {
            AddNine(digits.substr(0, length), group, higher,
                    digits.find_first_not_of('0', length) != std::string_view::npos);
            digits.remove_prefix(length);
            higher = true;
        }
    }

    void AddDecimals(std::string_view digits) {
        Add(L"phẩy");
        for (const char digit : digits)
            Add(kDigits[digit - '0']);
    }

    std::wstring Finish(bool whole) {
        if (whole && Has(kWordsChan))
            Add(L"chẵn");
        if (Has(kWordsPoint))
            *end_++ = L'.';
        if (Has(kWordsCapital))
            words_[0] = ToUpperLetter(words_[0]);
        const std::wstring_view words(words_, static_cast<std::size_t>(end_ - words_));
        return Has(kWordsUpper) ? ToUpper(words) : std::wstring(words);
    }

private:
    bool Has(unsigned option) const { return (options_ & option) != 0; }

    // Up to nine digits that count 10 to the power of nine times `power`.
    void AddNine(std::string_view digits, std::size_t power, bool higher, bool lower) {
        const bool empty = digits.find_first_not_of('0') == std::string_view::npos;
        if (empty && (!lower || power == 0 || !Has(kWordsEmptyGroups)))
            return;
        if (empty)
            Add(kDigits[0]);
        for (std::size_t group = (digits.size() + 2) / 3; !empty && group-- > 0;) {
            const std::size_t length = digits.size() - group * 3;
            const int value = ValueOf(digits.substr(0, length));
            digits.remove_prefix(length);
            if (value != 0)
                AddThree(value, higher);
            else if (higher && Has(kWordsEmptyGroups) &&
                     digits.find_first_not_of('0') != std::string_view::npos)
                Add(kDigits[0]);
            else
                continue;
            if (group == 2)
                Add(L"triệu");
            if (group == 1)
                Add(Has(kWordsNgan) ? L"ngàn" : L"nghìn");
            higher = true;
        }
        for (std::size_t i = 0; i < power; ++i)
            Add(Has(kWordsTi) ? L"tỉ" : L"tỷ");
    }

    static int ValueOf(std::string_view digits) {
        int value = 0;
        for (const char digit : digits)
            value = value * 10 + (digit - '0');
        return value;
    }

    void AddThree(int value, bool higher) {
        const int hundreds = value / 100, tens = value / 10 % 10, ones = value % 10;
        const bool hasHundreds = hundreds != 0 || higher;
        if (hasHundreds) {
            Add(kDigits[hundreds]);
            Add(L"trăm");
        }
        if (tens > 1)
            Add(kDigits[tens]);
        if (tens > 0)
            Add(tens == 1 ? L"mười" : L"mươi");
        if (ones == 0)
            return;
        if (tens == 0 && hasHundreds)
            AddOdd();
        if (tens > 1 && ones == 1)
            Add(L"mốt");
        else if (tens > 1 && ones == 4 && !Has(kWordsBon))
            Add(L"tư");
        else if (tens > 0 && ones == 5)
            Add(L"lăm");
        else
            Add(kDigits[ones]);
    }

    // A digit takes at most twelve letters with what stands between, and the last of the groups of
    // nine as many words as there are groups before it.
    static constexpr std::size_t kMostGroups = kMostDigits / 9 + 1;
    static constexpr std::size_t kMostLetters =
        2 * kMostDigits * 12 + kMostGroups * (kMostGroups + 1) / 2 * 3 + 100;

    unsigned options_;
    wchar_t words_[kMostLetters];
    wchar_t* end_ = words_;
};

} // namespace

const Currency* FindCurrency(std::wstring_view code) {
    for (const Currency& currency : kCurrencies)
        if (EqualsIgnoringCase(code, currency.code))
            return &currency;
    return nullptr;
}

std::wstring NumberToWords(const ExactNumber& number, unsigned options) {
    Reader reader(options);
    reader.AddSign(number.negative);
    reader.AddWhole(number.whole);
    if (!number.fraction.empty())
        reader.AddDecimals(number.fraction);
    return reader.Finish(number.fraction.empty());
}

std::wstring AmountToWords(const ExactNumber& amount, const Currency& currency, unsigned options) {
    const ExactNumber rounded = Rounded(amount, currency.decimals());
    Reader reader(options);
    reader.AddSign(rounded.negative);
    reader.AddWhole(rounded.whole);
    reader.Add(currency.unit);
    if (!rounded.fraction.empty()) {
        std::string part = rounded.fraction;
        part.resize(currency.decimals(), '0');
        if (part[0] == '0') {
            reader.AddOdd();
            part.erase(0, 1);
        }
        reader.AddWhole(part);
        reader.Add(currency.subunit);
    }
    return reader.Finish(rounded.fraction.empty());
}

} // namespace vndesk
