// SPDX-License-Identifier: MIT
#include "passwords/text/common_passwords.h"

#include "text/capitals.h"

#include <algorithm>
#include <iterator>

namespace vndesk {

namespace {

// In capitals, in the order of their codes, which binary search needs. Rows of one width need no
// addresses that loading would have to write.
constexpr CommonPassword kAll[] = {
    L"000000",        L"0000000",        L"00000000",       L"000000000",     L"0000000000",
    L"010203",        L"01020304",       L"0123",           L"01230123",      L"012345",
    L"01234567",      L"012345678",      L"0123456789",     L"090909",        L"0909090909",
    L"0987654321",    L"1010",           L"101010",         L"10101010",      L"10203",
    L"102030",        L"10203040",       L"11111",          L"111111",        L"1111111",
    L"11111111",      L"111111111",      L"1111111111",     L"112233",        L"11223344",
    L"1122334455",    L"121212",         L"12121212",       L"123123",        L"123123123",
    L"123123A",       L"123123AA",       L"123321",         L"1234",          L"12341234",
    L"12344321",      L"12345",          L"123451",         L"1234512345",    L"123454321",
    L"123456",        L"1234561",        L"123456123456",   L"1234567",       L"12345678",
    L"123456789",     L"1234567890",     L"12345678910",    L"123456789A",    L"123456789Q",
    L"12345678A",     L"1234567A",       L"123456A",        L"123456AA",      L"123456ABC",
    L"123456Q",       L"12345QWERT",     L"1234QWER",       L"123654",        L"123654789",
    L"123789",        L"123789456",      L"123987",         L"123ABC",        L"123QWE",
    L"123QWE123",     L"123QWEASD",      L"1357",           L"135790",        L"142536",
    L"147147",        L"147258",         L"147258369",      L"147852",        L"147852369",
    L"147896325",     L"159159",         L"159357",         L"159753",        L"159951",
    L"1Q2W3E",        L"1Q2W3E4R",       L"1Q2W3E4R5T",     L"1QAZ2WSX",      L"1QAZXSW2",
    L"222222",        L"22222222",       L"223344",         L"23456789",      L"246810",
    L"2580",          L"258369",         L"2WSX3EDC",       L"321654",        L"321654987",
    L"333333",        L"33333333",       L"369258",         L"369258147",     L"444444",
    L"44444444",      L"456456",         L"456789",         L"5201314",       L"520520",
    L"555555",        L"55555555",       L"555666",         L"654321",        L"666666",
    L"66666666",      L"66668888",       L"666888",         L"686868",        L"68686868",
    L"696969",        L"741852",         L"741852963",      L"753951",        L"7654321",
    L"777777",        L"77777777",       L"777888",         L"787878",        L"789123",
    L"789456",        L"789456123",      L"789789",         L"797979",        L"79797979",
    L"868686",        L"86868686",       L"87654321",       L"8888",          L"888888",
    L"8888888",       L"88888888",       L"888999",         L"898989",        L"963852",
    L"963852741",     L"987654",         L"987654321",      L"9876543210",    L"989898",
    L"999888",        L"9999",           L"999999",         L"9999999",       L"99999999",
    L"A123456",       L"A1234567",       L"A12345678",      L"A123456789",    L"A1B2C3",
    L"A1B2C3D4",      L"AA123456",       L"AAAAAA",         L"AAAAAAAA",      L"ABC123",
    L"ABC12345",      L"ABC123456",      L"ABCD",           L"ABCD123",       L"ABCD1234",
    L"ABCDEF",        L"ABCDEFG1",       L"ABCDEFGH",       L"ADMIN",         L"ADMIN1",
    L"ADMIN12",       L"ADMIN123",       L"ADMIN1234",      L"ADMIN12345",    L"ADMIN123456",
    L"ADMIN@123",     L"ADMIN@1234",     L"ADMIN@12345",    L"ADMINADMIN",    L"ADMINISTRATOR",
    L"ANH YEU EM",    L"ANH YÊU EM",     L"ANHEM",          L"ANHNHOEM",      L"ANHNHOEMNHIEU",
    L"ANHYEEUEM",     L"ANHYEUEM",       L"ANHYEUEM1",      L"ANHYEUEM123",   L"ANHYEUEM123456",
    L"ANHYEUEMNHIEU", L"ANHYÊUEM",       L"ASD123",         L"ASD123456",     L"ASDASD",
    L"ASDASD123",     L"ASDASDASD",      L"ASDF1234",       L"ASDFGH",        L"ASDFGHJK",
    L"ASDFGHJKL",     L"BABY",           L"BABYLOVE",       L"BANHANG",       L"BANHANG123",
    L"BANHANG@123",   L"BARCELONA",      L"BATMAN",         L"BIMAT",         L"BIMAT123",
    L"BINHDUONG",     L"BOMEYEU",        L"BONGDA",         L"BONGDA123",     L"BOYEU",
    L"BÍ MẬT",        L"CANTHO",         L"CANTHO123",      L"CHANGEME",      L"CHANGEME123",
    L"CHAOBAN",       L"CHELSEA",        L"CHIYEUMINHANH",  L"CHIYEUMINHEM",  L"CHOCON",
    L"CHONGYEU",      L"CHUCMUNGNAMMOI", L"COMPUTER",       L"CONGTY",        L"CONGTY123",
    L"CONGTY123456",  L"CONGTY@123",     L"CONYEUME",       L"CUAHANG",       L"CUAHANG123",
    L"DANANG",        L"DANANG123",      L"DANGNHAP",       L"DANGNHAP123",   L"DEFAULT",
    L"DORAEMON",      L"DRAGON",         L"EM YEU ANH",     L"EM YÊU ANH",    L"EMNHOANH",
    L"EMYEEUANH",     L"EMYEUANH",       L"EMYEUANH1",      L"EMYEUANH123",   L"EMYEUANH123456",
    L"EMYÊUANH",      L"FACEBOOK",       L"FOOTBALL",       L"FOREVER",       L"FREEFIRE",
    L"GAME123",       L"GAUBONG",        L"GIA ĐÌNH",       L"GIADINH",       L"GIADINH123",
    L"GIADINHLASO1",  L"GIADINHTOI",     L"GIAMDOC",        L"GIAMDOC123",    L"GOOGLE",
    L"GUEST",         L"GUEST123",       L"HAIPHONG",       L"HAIPHONG123",   L"HALONG",
    L"HANHPHUC",      L"HANHPHUC123",    L"HANOI",          L"HANOI1",        L"HANOI123",
    L"HANOI123456",   L"HANOIMUATHU",    L"HELLO",          L"HELLO123",      L"HELLOWORLD",
    L"HEOCON",        L"HOAHONG",        L"HOANGANH",       L"HOANGANH123",   L"HOCHIMINH",
    L"HOCHIMINH123",  L"HOCSINH",        L"HÀ NỘI",         L"HÀNỘI",         L"HẠNH PHÚC",
    L"I LOVE YOU",    L"ILOVEU",         L"ILOVEYOU",       L"ILOVEYOU1",     L"ILOVEYOU123",
    L"INTERNET",      L"IPHONE",         L"IPHONE123",      L"KETOAN",        L"KETOAN123",
    L"KETOAN123456",  L"KETOAN@123",     L"KHONGCOMATKHAU", L"LETMEIN",       L"LIENQUAN",
    L"LIENQUAN123",   L"LINH123",        L"LIVERPOOL",      L"LOCPHAT68",     L"LOGIN",
    L"LOVE",          L"LOVE123",        L"LOVELOVE",       L"LOVELY",        L"LOVEYOU",
    L"MA65TKHA63U",   L"MAATJKHAAUR",    L"MAIMAI",         L"MAIMAIYEUANH",  L"MAIMAIYEUEM",
    L"MANAGER",       L"MAT KHAU",       L"MATKHAU",        L"MATKHAU1",      L"MATKHAU123",
    L"MATKHAU1234",   L"MATKHAU123456",  L"MATKHAU@123",    L"MATKHAUCUATOI", L"MATKHAULA",
    L"MATKHAULAGI",   L"MATKHAUMOI",     L"MATMA",          L"MAYMAN",        L"MAYTINH",
    L"MEOCON",        L"MEYEU",          L"MINH123",        L"MINHANH",       L"MK123",
    L"MK1234",        L"MK123456",       L"MK12345678",     L"MK123456789",   L"MONKEY",
    L"MYLOVE",        L"MẬT KHẨU",       L"MẬTKHẨU",        L"NAMMOI",        L"NARUTO",
    L"NGOCANH",       L"NGUOIDUNG",      L"NGUOIDUNG123",   L"NGUOIYEU",      L"NGUYEN",
    L"NGUYEN123",     L"NGUYENANH",      L"NGUYENVAN",      L"NHANVIEN",      L"NHANVIEN123",
    L"NHATRANG",      L"NHOANH",         L"NHOEM",          L"P@SSW0RD",      L"P@SSW0RD123",
    L"P@SSWORD",      L"P@SSWORD123",    L"PA$$W0RD",       L"PASS",          L"PASS123",
    L"PASS1234",      L"PASS@123",       L"PASSPASS",       L"PASSW0RD",      L"PASSWORD",
    L"PASSWORD1",     L"PASSWORD12",     L"PASSWORD123",    L"PASSWORD@123",  L"PHANMEM",
    L"PHATTAI",       L"PHATTAI123",     L"POIUYT",         L"POIUYTREWQ",    L"POKEMON",
    L"PRINCESS",      L"Q1W2E3",         L"Q1W2E3R4",       L"Q1W2E3R4T5",    L"QAZWSX",
    L"QAZWSXEDC",     L"QUANTRI",        L"QUANTRI123",     L"QWE123",        L"QWE123456",
    L"QWEASD",        L"QWEASDZXC",      L"QWER1234",       L"QWERT12345",    L"QWERTY",
    L"QWERTY1",       L"QWERTY12",       L"QWERTY123",      L"QWERTY1234",    L"QWERTY12345",
    L"QWERTY123456",  L"QWERTYUI",       L"QWERTYUIO",      L"QWERTYUIOP",    L"RONALDO",
    L"ROOT",          L"ROOT123",        L"SAIGON",         L"SAIGON1",       L"SAIGON123",
    L"SAIGON123456",  L"SAIGONDEPLAM",   L"SAMSUNG",        L"SECRET",        L"SINHVIEN",
    L"STARWARS",      L"SUNSHINE",       L"SUPERMAN",       L"SUPPORT",       L"SÀI GÒN",
    L"SÀIGÒN",        L"TEST",           L"TEST123",        L"TEST1234",      L"TESTTEST",
    L"THANGLONG",     L"THANHCONG",      L"THANHCONG123",   L"THUKHO",        L"THUKHO123",
    L"TINHBAN",       L"TINHBANMAIMAI",  L"TINHYEU",        L"TINHYEU123",    L"TOILATOI",
    L"TOIYEUANH",     L"TOIYEUEM",       L"TOIYEUVIETNAM",  L"TPHCM",         L"TRAN",
    L"TRAN123",       L"TRUSTNO1",       L"TUAN",           L"TUAN123",       L"TUANANH",
    L"TUANANH1",      L"TUANANH123",     L"TUDO",           L"TÌNH YÊU",      L"USER",
    L"USER123",       L"USER1234",       L"VANPHONG",       L"VIEETJNAM",     L"VIET NAM",
    L"VIETNAM",       L"VIETNAM1",       L"VIETNAM123",     L"VIETNAM1234",   L"VIETNAM123456",
    L"VIETNAM@123",   L"VIETNAMTOI",     L"VIETNAMVODICH",  L"VIỆT NAM",      L"VIỆTNAM",
    L"VN123456",      L"VOCHONG",        L"VOLAM",          L"VOLAM123",      L"VOYEU",
    L"WELCOME",       L"WELCOME1",       L"WELCOME123",     L"WELCOME@123",   L"XIN CHÀO",
    L"XINCHAO",       L"XINCHAO1",       L"XINCHAO123",     L"YEUANH",        L"YEUANH123",
    L"YEUBO",         L"YEUCON",         L"YEUDOI",         L"YEUEM",         L"YEUEM123",
    L"YEUEMMAIMAI",   L"YEUEMNHIEU",     L"YEUEMNHIEULAM",  L"YEUMAIMAI",     L"YEUME",
    L"YEUTHUONG",     L"YÊU ANH",        L"YÊU EM",         L"ZAQ12WSX",      L"ZAQ1XSW2",
    L"ZXC123",        L"ZXCV1234",       L"ZXCVBN",         L"ZXCVBNM",       L"ZXCVBNM123",
    L"ZZZZZZ",
};

} // namespace

std::span<const CommonPassword> CommonPasswords() {
    return kAll;
}

bool IsCommonPassword(std::wstring_view password) {
    // No copy in capitals: whoever holds a password clears it.
    const auto standsBefore = [](std::wstring_view row, std::wstring_view searched) {
        return std::lexicographical_compare(
            row.begin(), row.end(), searched.begin(), searched.end(),
            [](wchar_t left, wchar_t right) { return ToCapital(left) < ToCapital(right); });
    };
    const auto found = std::lower_bound(std::begin(kAll), std::end(kAll), password, standsBefore);
    return found != std::end(kAll) && !standsBefore(password, *found);
}

} // namespace vndesk
