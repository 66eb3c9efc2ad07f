// SPDX-License-Identifier: MIT
// vnhost CONNECTION-STRING: a whole host in C++: logon, rights, administration, search, message
// box. The library is known by vndesk_idl.h, which is generated from its IDL; rights.h and
// host_database.h of the tour are taken over as they are. Exit code 0 when somebody has logged on,
// 1 when nobody has, 2 after an error.
#include <windows.h>
#include <comdef.h>
#include <wrl/client.h>

#include <cstdio>
#include <string>

#include "host_database.h"
#include "host_error.h"
#include "rights.h"
#include "vndesk_idl.h"

namespace {

using Microsoft::WRL::ComPtr;

// Commands of this program, as the table SubMenu numbers them.
constexpr long kUsers = 2, kGroups = 3, kCustomers = 5;

const _variant_t kLeftOut(DISP_E_PARAMNOTFOUND, VT_ERROR); // an optional argument

void Print(const std::wstring& line, FILE* stream = stdout) {
    std::string bytes(line.size() * 3, '\0');
    bytes.resize(static_cast<size_t>(
        WideCharToMultiByte(CP_UTF8, 0, line.data(), static_cast<int>(line.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    fprintf(stream, "%s\n", bytes.c_str());
    fflush(stream);
}

template <class Class, class Interface> ComPtr<Interface> Create() {
    ComPtr<Interface> object;
    Check(CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)));
    return object;
}

std::wstring Text(const _bstr_t& text) {
    return text.length() ? static_cast<const wchar_t*>(text) : L"";
}

Rights ReadRights(const std::wstring& connect, long user) {
    HostDatabase database(connect);
    return Rights(database, user);
}

void FindCustomers(const _bstr_t& connect) {
    const auto search = Create<clsSearch, ISearch2>();
    Check(search->put_ActiveConnection(_variant_t(connect)));
    Check(search->put_TableSearch(_bstr_t(L"KhachHang")));
    long modal = 1;
    Check(search->Show(&modal, kLeftOut));
    _bstr_t condition;
    Check(search->get_Result(condition.GetAddress()));
    if (!condition.length())
        return Print(L"   cancelled");
    Print(L"   " + Text(condition));
    ComPtr<IDispatch> made;
    Check(search->CreateCommand(_bstr_t(L"SELECT MaKH,[Name],CongNo FROM KhachHang"), kLeftOut,
                                &made));
    LateBound command{_variant_t(made.Get())};
    command.Put(L"CommandText", _bstr_t(command.Get(L"CommandText")) + L" ORDER BY MaKH");
    const auto rows = RowsOf(LateBound(command.Call(L"Execute")));
    const auto tools = Create<Varnok, IVarnok>();
    for (const Row& row : rows) {
        _bstr_t debt;
        Check(tools->CvNStr(row[2], debt.GetAddress()));
        Print(L"   " + TextOf(row[0]) + L" " + TextOf(row[1]) + L" " + Text(debt));
    }
    Print(L"   " + std::to_wstring(rows.size()) + L" rows");
    _bstr_t words;
    Check(Create<clsText, IText>()->NumberToWords(_variant_t(static_cast<long>(rows.size())), 0,
                                                  words.GetAddress()));
    Print(L"   " + Text(words));
}

int Run(const wchar_t* connectionString) {
    _bstr_t connect(connectionString); // texts go by reference, as Visual Basic passes them
    Print(L"1. Logon");
    const auto logon = Create<clsLogon, ILogon2>();
    const auto settings = Create<clsSettings, ISettings>();
    Check(settings->UseRecommended());
    Check(logon->putref_Settings(settings.Get()));
    Check(logon->put_MaxTries(5));
    long user = 0;
    Check(logon->ShowLogon(&connect.GetBSTR(), &user));
    if (!user) {
        Print(L"   nobody has logged on");
        return 1;
    }
    Print(L"   user " + std::to_wstring(user));

    Print(L"2. Rights");
    Rights rights = ReadRights(connectionString, user);
    for (const Row& command :
         HostDatabase(connectionString).Read(L"SELECT ID,[Desc] FROM SubMenu ORDER BY ID"))
        if (rights.Allows(NumberOf(command[0])))
            Print(L"   " + TextOf(command[0]) + L" " + TextOf(command[1]));

    Print(L"3. Administration");
    if (rights.Allows(kUsers)) {
        Check(logon->UserManager(&connect.GetBSTR()));
        Print(L"   user list closed");
    } else {
        Print(L"   user list not allowed");
    }
    if (rights.Allows(kGroups)) {
        Check(logon->ShowGroup(&connect.GetBSTR()));
        Print(L"   group manager closed");
    } else {
        Print(L"   group manager not allowed");
    }
    rights = ReadRights(connectionString, user); // the forms may have changed them

    Print(L"4. Search");
    if (rights.Allows(kCustomers))
        FindCustomers(connect);
    else
        Print(L"   not allowed");

    Print(L"5. Message");
    const _bstr_t text(L"B\u1EA1n \u0111\u00E3 xem xong ch\u01B0a?"), title(L"VnDesk");
    long pressed = 0;
    Check(logon->Ask(text, vbYesNo, vbQuestion, title, &pressed));
    Print(pressed == vnAnswerYes ? L"   yes" : L"   no");
    return 0;
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 2) {
        Print(L"usage: vnhost CONNECTION-STRING", stderr);
        return 2;
    }
    SetConsoleOutputCP(CP_UTF8);
    // The dialogs need a single-threaded apartment.
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return 2;
    int code = 2;
    try {
        code = Run(argv[1]);
    } catch (const HostError& error) {
        wchar_t number[16];
        swprintf(number, 16, L"0x%08lX", static_cast<unsigned long>(error.code));
        Print(std::wstring(L"Error ") + number + L": " + error.description, stderr);
    } catch (const _com_error& error) { // a value that is not of its column's type
        Print(std::wstring(L"Error: ") + error.ErrorMessage(), stderr);
    }
    CoUninitialize();
    return code;
}
