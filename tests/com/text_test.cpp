// SPDX-License-Identifier: MIT
// VnDesk.clsText through the registered DLL.
#include <gtest/gtest.h>
#include <olectl.h>

#include <limits>

#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/late_bound.h"
#include "support/script_host.h"
#include "support/text.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;

constexpr HRESULT kUnicodeAlready = static_cast<HRESULT>(0x80040213);

std::wstring Take(BSTR text) {
    EXPECT_NE(nullptr, text) << "an empty text, not a null one";
    const std::wstring copy(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return copy;
}

_variant_t ByteArray(const std::vector<BYTE>& bytes) {
    _variant_t array;
    V_ARRAY(&array) = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    V_VT(&array) = VT_ARRAY | VT_UI1;
    std::copy(bytes.begin(), bytes.end(), static_cast<BYTE*>(V_ARRAY(&array)->pvData));
    return array;
}

std::vector<BYTE> BytesOf(const _variant_t& array) {
    EXPECT_EQ(VT_ARRAY | VT_UI1, V_VT(&array));
    LONG last = -1;
    EXPECT_SUCCEEDED(SafeArrayGetUBound(V_ARRAY(&array), 1, &last));
    const auto* data = static_cast<const BYTE*>(V_ARRAY(&array)->pvData);
    return {data, data + last + 1};
}

_variant_t Currency(LONGLONG tenThousandths) {
    _variant_t value;
    V_VT(&value) = VT_CY;
    V_CY(&value).int64 = tenThousandths;
    return value;
}

_variant_t DecimalOf(const wchar_t* text) {
    _variant_t value;
    EXPECT_SUCCEEDED(VarDecFromStr(_bstr_t(text), LOCALE_INVARIANT, 0, &V_DECIMAL(&value)));
    V_VT(&value) = VT_DECIMAL;
    return value;
}

_variant_t Null() {
    _variant_t value;
    V_VT(&value) = VT_NULL;
    return value;
}

class TextTest : public testing::Test {
protected:
    void SetUp() override {
        CLSID clsid;
        ASSERT_SUCCEEDED(CLSIDFromProgID(L"VnDesk.clsText", &clsid));
        ASSERT_SUCCEEDED(
            CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&text)));
    }

    long Matches(const wchar_t* where, const wchar_t* what, AccentSensitivity sensitivity) {
        long place = -1;
        EXPECT_SUCCEEDED(text->Matches(_bstr_t(where), _bstr_t(what), sensitivity, &place));
        return place;
    }
    std::wstring Words(const _variant_t& value, long options = 0) {
        BSTR words = nullptr;
        EXPECT_SUCCEEDED(text->NumberToWords(value, options, &words));
        return Take(words);
    }
    std::wstring Amount(const _variant_t& value, const wchar_t* currency, long options) {
        BSTR words = nullptr;
        EXPECT_SUCCEEDED(text->AmountToWords(value, _bstr_t(currency), options, &words));
        return Take(words);
    }
    std::wstring Convert(const wchar_t* from, TextEncoding source, TextEncoding target) {
        BSTR result = nullptr;
        EXPECT_SUCCEEDED(text->Convert(_bstr_t(from), source, target, &result));
        return Take(result);
    }
    std::wstring Lost() {
        BSTR lost = nullptr;
        EXPECT_SUCCEEDED(text->get_LastLost(&lost));
        return Take(lost);
    }
    std::vector<long> LostPositions() {
        _variant_t array;
        EXPECT_SUCCEEDED(text->get_LastLostPositions(&array));
        EXPECT_EQ(VT_ARRAY | VT_VARIANT, V_VT(&array));
        std::vector<long> positions;
        LONG last = -1;
        EXPECT_SUCCEEDED(SafeArrayGetUBound(V_ARRAY(&array), 1, &last));
        for (LONG i = 0; i <= last; ++i) {
            _variant_t item;
            EXPECT_SUCCEEDED(SafeArrayGetElement(V_ARRAY(&array), &i, &item));
            positions.push_back(item);
        }
        return positions;
    }
    TextEncoding Detect(const _variant_t& what) {
        TextEncoding found = vnTcvn3Capitals;
        EXPECT_SUCCEEDED(text->Detect(what, &found));
        return found;
    }
    short Confidence() {
        short value = -1;
        EXPECT_SUCCEEDED(text->get_Confidence(&value));
        return value;
    }

    ComPtr<IText> text;
};

TEST_F(TextTest, AccentsAndLetterCase) {
    BSTR result = nullptr;
    EXPECT_SUCCEEDED(text->RemoveAccents(_bstr_t(L"Đường Ðà ð"), &result));
    EXPECT_EQ(L"Duong Da d", Take(result));
    EXPECT_SUCCEEDED(text->UpperCase(_bstr_t(L"đường"), &result));
    EXPECT_EQ(L"ĐƯỜNG", Take(result));
    EXPECT_SUCCEEDED(text->LowerCase(_bstr_t(L"ĐƯỜNG"), &result));
    EXPECT_EQ(L"đường", Take(result));
    EXPECT_SUCCEEDED(text->TitleCase(_bstr_t(L"nguyễn thị ÁNH"), &result));
    EXPECT_EQ(L"Nguyễn Thị Ánh", Take(result));
    EXPECT_SUCCEEDED(text->UpperCase(nullptr, &result));
    EXPECT_EQ(L"", Take(result)) << "a null text is an empty one";
    EXPECT_HR(E_POINTER, text->UpperCase(nullptr, nullptr));
}

TEST_F(TextTest, PatternsAreFoundWithTheAccentsThatTheyHave) {
    for (const wchar_t* name : {L"đường", L"dương", L"Dưỡng"})
        EXPECT_LE(3, Matches(name, L"dương", vnAccentSmart));
    EXPECT_EQ(4, Matches(L"hòa", L"hoà", vnAccentSmart));
    EXPECT_EQ(0, Matches(L"hoa", L"hoà", vnAccentSmart));
    EXPECT_EQ(3, Matches(L"hoa", L"hoà", vnAccentInsensitive));
    EXPECT_EQ(0, Matches(L"Đà Nẵng", L"da nang", vnAccentSensitive));
    EXPECT_EQ(2, Matches(L"Đà Nẵng", L"nang", vnAccentSmart));
    EXPECT_EQ(1, Matches(L"Đà Nẵng", L"ang", vnAccentSmart));
    long place = -1;
    EXPECT_HR(E_INVALIDARG, text->Matches(_bstr_t(L"a"), _bstr_t(L"a"),
                                          static_cast<AccentSensitivity>(3), &place));
}

TEST_F(TextTest, VietnameseOrder) {
    long order = 7;
    EXPECT_SUCCEEDED(text->Compare(_bstr_t(L"ăn"), _bstr_t(L"ân"), &order));
    EXPECT_EQ(-1, order);
    EXPECT_SUCCEEDED(text->Compare(_bstr_t(L"đá"), _bstr_t(L"dừa"), &order));
    EXPECT_EQ(1, order);
    EXPECT_SUCCEEDED(text->Compare(_bstr_t(L"Hoà"), _bstr_t(L"hòa"), &order));
    EXPECT_EQ(0, order);
    BSTR first = nullptr, second = nullptr;
    EXPECT_SUCCEEDED(text->SortKey(_bstr_t(L"Dừa"), &first));
    EXPECT_SUCCEEDED(text->SortKey(_bstr_t(L"Đá"), &second));
    EXPECT_LT(Take(first), Take(second));
}

TEST_F(TextTest, FormsMayBeAdded) {
    const auto normalized = [this](const wchar_t* from, long form) {
        BSTR result = nullptr;
        EXPECT_SUCCEEDED(text->Normalize(_bstr_t(from), static_cast<NormalForm>(form), &result));
        return Take(result);
    };
    EXPECT_EQ(L"Việt", normalized(L"Vie\u0323\u0302t", vnNfc));
    EXPECT_EQ(L"Vie\u0323\u0302t", normalized(L"Việt", vnNfd));
    EXPECT_EQ(L"hoà thuỷ", normalized(L"hòa thủy", vnNewTonePlace));
    EXPECT_EQ(L"hòa thủy", normalized(L"hoà thuỷ", vnOldTonePlace));
    EXPECT_EQ(L"hoa\u0300", normalized(L"hòa", vnNewTonePlace | vnNfd));
    BSTR result = nullptr;
    for (const long form : {6, 8, -1})
        EXPECT_HR(E_INVALIDARG,
                  text->Normalize(_bstr_t(L"a"), static_cast<NormalForm>(form), &result));
    EXPECT_EQ(nullptr, result);
}

TEST_F(TextTest, NumbersOfEveryTypeAreRead) {
    const std::wstring twentyOne = L"hai mươi mốt";
    for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8,
                               VT_UI8, VT_R4, VT_R8, VT_CY, VT_DECIMAL, VT_BSTR}) {
        _variant_t value(21L);
        ASSERT_SUCCEEDED(VariantChangeType(&value, &value, 0, type)) << type;
        EXPECT_EQ(twentyOne, Words(value)) << type;
        _variant_t reference;
        V_VT(&reference) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&reference) = &value;
        EXPECT_EQ(twentyOne, Words(reference)) << type;
    }
    EXPECT_EQ(L"", Words(_variant_t()));
    EXPECT_EQ(L"", Words(Null()));
    EXPECT_EQ(L"", Amount(Null(), L"VND", 1));
    EXPECT_EQ(L"âm năm", Words(-5L));
    EXPECT_EQ(L"hai phẩy không năm", Words(2.05));
    EXPECT_EQ(L"không phẩy năm", Words(L"0,5"));
    EXPECT_EQ(L"một nghìn hai trăm ba mươi tư phẩy năm", Words(L"1.234,5"));
    EXPECT_EQ(L"không", Words(L"chưa rõ"));
    EXPECT_EQ(L"một trăm nghìn", Words(L"1E5")) << "as CvTextToN reads it";
    EXPECT_EQ(L"một phẩy năm", Words(Currency(15000)));
    EXPECT_EQ(L"âm chín trăm hai mươi hai nghìn ba trăm ba mươi bảy tỷ hai trăm lẻ ba triệu sáu "
              L"trăm tám mươi lăm nghìn bốn trăm bảy mươi bảy phẩy năm tám không tám",
              Words(Currency(std::numeric_limits<LONGLONG>::min())));
    EXPECT_EQ(L"bảy phẩy chín hai hai tám một sáu hai năm một bốn hai sáu bốn ba ba bảy năm chín "
              L"ba năm bốn ba chín năm không ba ba năm",
              Words(DecimalOf(L"7.9228162514264337593543950335")));
}

TEST_F(TextTest, AmountsOfMoneyAreRead) {
    EXPECT_EQ(L"Một trăm hai mươi lăm triệu năm trăm nghìn đồng chẵn",
              Amount(125500000L, L"VND", 65));
    EXPECT_EQ(L"Mười hai đô la Mỹ lẻ tám xu", Amount(12.08, L"USD", 1));
    EXPECT_EQ(L"Mười hai đô la Mỹ tám mươi xu", Amount(12.8, L"usd", 1));
    EXPECT_EQ(L"MỘT ĐỒNG.", Amount(DecimalOf(L"0.5"), L"VND", 256 + 128));
}

TEST_F(TextTest, WhatIsNoNumberIsRefused) {
    BSTR words = nullptr;
    for (const double value : {9007199254740994.0, -1e300, std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()})
        EXPECT_HR(CTL_E_OVERFLOW, text->NumberToWords(_variant_t(value), 0, &words)) << value;
    EXPECT_HR(CTL_E_OVERFLOW, text->NumberToWords(_variant_t(16777218.0f), 0, &words));
    EXPECT_EQ(L"chín triệu không trăm lẻ bảy nghìn một trăm chín mươi chín tỷ hai trăm năm mươi tư "
              L"triệu bảy trăm bốn mươi nghìn chín trăm chín mươi mốt",
              Words(9007199254740991.0));
    EXPECT_HR(DISP_E_TYPEMISMATCH, text->NumberToWords(_variant_t(true), 0, &words));
    EXPECT_HR(DISP_E_TYPEMISMATCH,
              text->NumberToWords(_variant_t(static_cast<IDispatch*>(text.Get())), 0, &words));
    EXPECT_HR(E_INVALIDARG, text->NumberToWords(_variant_t(1L), 512, &words));
    EXPECT_HR(E_INVALIDARG, text->NumberToWords(_variant_t(1L), -1, &words));
    EXPECT_HR(E_INVALIDARG, text->AmountToWords(_variant_t(1L), _bstr_t(L"XYZ"), 0, &words));
    EXPECT_HR(E_INVALIDARG, text->AmountToWords(_variant_t(1L), nullptr, 0, &words));
    EXPECT_EQ(nullptr, words);
}

TEST_F(TextTest, TextsAreConvertedAndLossesTold) {
    EXPECT_EQ(L"Thông báo", Convert(L"Th«ng b¸o", vnTcvn3, vnUnicode));
    EXPECT_EQ(L"", Lost());
    EXPECT_EQ(L"\u00B8nh €", Convert(L"Ánh €", vnUnicode, vnTcvn3));
    EXPECT_EQ(L"Á€", Lost());
    EXPECT_EQ((std::vector<long>{1, 5}), LostPositions());
    EXPECT_EQ(L"Vieät", Convert(L"Việt", vnUnicode, vnVniWindows));
    EXPECT_EQ(L"", Lost());
    EXPECT_TRUE(LostPositions().empty());
    VARIANT_BOOL can = VARIANT_TRUE;
    EXPECT_SUCCEEDED(text->CanEncode(_bstr_t(L"Ánh"), vnTcvn3, &can));
    EXPECT_EQ(VARIANT_FALSE, can);
    EXPECT_EQ(L"Á", Lost());
    EXPECT_SUCCEEDED(text->CanEncode(_bstr_t(L"Ánh"), vnCp1258, &can));
    EXPECT_EQ(VARIANT_TRUE, can);
    BSTR result = nullptr;
    EXPECT_HR(E_INVALIDARG, text->Convert(_bstr_t(L"a"), vnNotVietnamese, vnUnicode, &result));
    EXPECT_HR(E_INVALIDARG,
              text->Convert(_bstr_t(L"a"), vnUnicode, static_cast<TextEncoding>(6), &result));
}

TEST_F(TextTest, UnicodeIsNotConvertedASecondTime) {
    const std::wstring once = Convert(L"Ng\u00ADêi sö dông", vnTcvn3, vnUnicode);
    BSTR result = nullptr;
    EXPECT_HR(kUnicodeAlready, text->Convert(_bstr_t(once.c_str()), vnTcvn3, vnUnicode, &result));
    EXPECT_EQ(nullptr, result);
    EXPECT_HR(kUnicodeAlready,
              text->Convert(_bstr_t(once.c_str()), vnVniWindows, vnUnicode, &result));
    _variant_t bytes;
    EXPECT_HR(kUnicodeAlready, text->ConvertBytes(ByteArray({0x56, 0x69, 0xE1, 0xBB, 0x87, 0x74}),
                                                  vnTcvn3, vnUnicode, &bytes));
    EXPECT_EQ(VT_EMPTY, V_VT(&bytes));
}

TEST_F(TextTest, BytesAreConverted) {
    const std::vector<BYTE> tcvn3 = {'T', 'h', 0xAB, 'n', 'g'};
    _variant_t result;
    EXPECT_SUCCEEDED(text->ConvertBytes(ByteArray(tcvn3), vnTcvn3, vnUnicode, &result));
    EXPECT_EQ((std::vector<BYTE>{'T', 0, 'h', 0, 0xF4, 0, 'n', 0, 'g', 0}), BytesOf(result));
    _variant_t back;
    EXPECT_SUCCEEDED(text->ConvertBytes(result, vnUnicode, vnTcvn3, &back));
    EXPECT_EQ(tcvn3, BytesOf(back));
    back.Clear();
    EXPECT_SUCCEEDED(
        text->ConvertBytes(ByteArray({'T', 'h', 0xC3, 0xB4, 'n', 'g'}), vnUnicode, vnTcvn3, &back));
    EXPECT_EQ(tcvn3, BytesOf(back)) << "UTF-8";
    for (const _variant_t& nothing : {_variant_t(), Null(), ByteArray({})}) {
        back.Clear();
        EXPECT_SUCCEEDED(text->ConvertBytes(nothing, vnTcvn3, vnUnicode, &back));
        EXPECT_TRUE(BytesOf(back).empty());
    }
    back.Clear();
    EXPECT_HR(DISP_E_TYPEMISMATCH,
              text->ConvertBytes(_variant_t(L"Th"), vnTcvn3, vnUnicode, &back));
    EXPECT_HR(E_INVALIDARG,
              text->ConvertBytes(ByteArray({0xFF, 0xFE, 0x41}), vnUnicode, vnTcvn3, &back));
    EXPECT_HR(E_POINTER, text->ConvertBytes(ByteArray({}), vnTcvn3, vnUnicode, nullptr));
}

TEST_F(TextTest, EncodingsAreDetected) {
    EXPECT_EQ(vnUnicode, Detect(L"Cộng hoà xã hội"));
    EXPECT_EQ(100, Confidence());
    EXPECT_EQ(vnTcvn3, Detect(L"Th«ng b¸o"));
    EXPECT_EQ(vnVniWindows, Detect(L"Ngöôøi söû duïng"));
    EXPECT_EQ(vnCp1258, Detect(L"Ti\u00EA\u00ECng Vi\u00EA\u00F2t"));
    EXPECT_EQ(vnUnicodeNfd, Detect(L"Vie\u0323\u0302t Nam"));
    EXPECT_EQ(vnTcvn3, Detect(ByteArray({'T', 'h', 0xAB, 'n', 'g', ' ', 'b', 0xB8, 'o'})));
    EXPECT_EQ(vnUnicode, Detect(ByteArray({'V', 'i', 0xE1, 0xBB, 0x87, 't'})));
    EXPECT_EQ(vnNotVietnamese, Detect(L"The quick brown fox"));
    EXPECT_GT(60, Confidence());
    EXPECT_EQ(vnNotVietnamese, Detect(_variant_t()));
    TextEncoding found;
    EXPECT_HR(DISP_E_TYPEMISMATCH, text->Detect(_variant_t(5L), &found));
}

// As scripts call it: by name, with what is optional left out, and with variables. By WScript's
// CreateObject: the one of Wine's VBScript engine keeps a reference for ever.
TEST(TextScriptTest, OptionalArgumentsMayBeLeftOut) {
    ScriptRunner script;
    script.RunOk(L"Set t = WScript.CreateObject(\"VnDesk.clsText\")\n"
                 L"name = \"Đà Nẵng\"\n"
                 L"Echo t.Matches(name, \"da nang\"), t.Matches(name, \"da\", 0)\n"
                 L"Echo t.NumberToWords(24), t.NumberToWords(24, 17)\n"
                 L"Echo t.AmountToWords(15000)\n"
                 L"Echo t.AmountToWords(12.08, \"USD\")\n"
                 L"Echo t.AmountToWords(1, \"VND\", 64)\n"
                 L"Echo t.AmountToWords(CCur(\"2,5\"), \"USD\", 0) <> \"\"\n"
                 L"Echo t.NumberToWords(Null) = \"\", t.NumberToWords(Empty) = \"\"\n"
                 L"Echo t.Normalize(\"hòa\", 4), t.Normalize(\"hoà\")\n"
                 L"Echo t.Convert(\"Th«ng b¸o\", 1, 0)\n"
                 L"Echo t.CanEncode(\"Ánh\", 1), t.LastLost\n"
                 L"where = t.LastLostPositions\n"
                 L"Echo UBound(where), where(0)\n"
                 L"Echo t.Detect(\"Th«ng b¸o\"), t.Confidence\n"
                 L"On Error Resume Next\n"
                 L"t.Convert name, 1, 0\n"
                 L"Echo Hex(Err.Number), Err.Description\n"
                 L"Err.Clear\n"
                 L"t.NumberToWords 1E+300\n"
                 L"Echo Err.Number\n"
                 L"Err.Clear\n"
                 L"t.UpperCase Null\n"
                 L"Echo Err.Number\n");
    EXPECT_EQ((std::vector<std::wstring>{
                  L"3 0", L"hai mươi tư Hai mươi bốn", L"Mười lăm nghìn đồng",
                  L"Mười hai đô la Mỹ lẻ tám xu", L"một đồng chẵn", L"True", L"True True",
                  L"hoà hoà", L"Thông báo", L"False Á", L"0 1", L"1 100",
                  L"80040213 The text is Vietnamese in Unicode already.", L"6", L"13"}),
              script.Lines());
}

} // namespace
