// SPDX-License-Identifier: MIT
// Late-bound calls beside the platform's own, loading and creating beside a server without a
// runtime library, and a text handed over as a BSTR.
#include "kit/benchmark.h"
#include "support/check_hr.h"
#include "support/late_bound.h"
#include "text/tcvn3.h"
#include "vndesk_idl.h"

#include <windows.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace {

using namespace bench;
using Microsoft::WRL::ComPtr;

void Must(HRESULT code, const char* what) {
    if (FAILED(code))
        throw std::runtime_error(what);
}

void MeasureCalls(Report& report) {
    ComPtr<IVarnok> object;
    Must(CoCreateInstance(__uuidof(Varnok), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)),
         "VnDesk.Varnok cannot be created: is vndesk.dll registered?");
    ComPtr<ITypeInfo> type;
    Must(object->GetTypeInfo(0, LOCALE_NEUTRAL, &type), "no type description");
    wchar_t nameOfMid1[] = L"Mid1";
    LPOLESTR name = nameOfMid1;
    DISPID id = 0;
    Must(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id), "no member Mid1");
    // The last argument comes first.
    _variant_t arguments[2] = {2L, L"Việt Nam"};
    DISPPARAMS parameters{arguments, nullptr, 2, 0};

    const auto byId = [&] {
        _variant_t result;
        object->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &parameters, &result, nullptr,
                       nullptr);
        Keep(result);
    };
    const auto platformById = [&] {
        _variant_t result;
        type->Invoke(object.Get(), id, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr);
        Keep(result);
    };
    report.Compare({"late-bound call by id", "the type library's own Invoke", Target::AtMost, 1.5,
                    Each(byId), Each(platformById)});
    report.Compare({"late-bound call by name", "the type library's own GetIDsOfNames and Invoke",
                    Target::AtMost, 1.5, Each([&] {
                        DISPID found = 0;
                        object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &found);
                        byId();
                    }),
                    Each([&] {
                        DISPID found = 0;
                        type->GetIDsOfNames(&name, 1, &found);
                        platformById();
                    })});
    BSTR text = V_BSTR(&arguments[1]);
    report.Compare({"early-bound call", "the type library's own Invoke", Target::Nothing, 0,
                    Each([&] {
                        BSTR character = nullptr;
                        object->Mid1(text, 2, &character);
                        SysFreeString(character);
                    }),
                    Each(platformById)});
}

// One whole life: load, make an object, release it, unload.
Work LifeOf(const std::wstring& path, REFCLSID clsid) {
    return Each([path, clsid] {
        const HMODULE module = LoadLibraryW(path.c_str());
        if (!module)
            throw std::runtime_error("a DLL cannot be loaded");
        using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
        const auto get = reinterpret_cast<GetClassObject>(
            reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
        {
            ComPtr<IClassFactory> factory;
            ComPtr<IUnknown> object;
            Must(get(clsid, IID_PPV_ARGS(&factory)), "no class object");
            Must(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)), "no object");
        }
        FreeLibrary(module);
    });
}

void MeasureLoading(Report& report) {
    wchar_t own[MAX_PATH];
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    std::wstring folder = own;
    folder.resize(folder.find_last_of(L'\\'));
    // Every program with windows has these loaded; they are no part of what the library costs.
    for (const wchar_t* name : {L"user32.dll", L"gdi32.dll", L"comctl32.dll", L"uxtheme.dll"})
        LoadLibraryW(name);
    const std::wstring library = folder + L"\\..\\vndesk.dll";
    report.Compare({"load the DLL, create an object", "a DLL without a runtime library",
                    Target::AtMost, 1.3, LifeOf(library, __uuidof(Varnok)),
                    LifeOf(folder + L"\\bare.dll", CLSID_NULL)});
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(library.c_str(), GetFileExInfoStandard, &data))
        report.Note(
            {"size of vndesk.dll, stripped", "bytes", static_cast<double>(data.nFileSizeLow), 0});
}

void MeasureText(Report& report) {
    using namespace vndesk;
    // Twenty characters of TCVN3, and as many as a text may have.
    for (const std::size_t length : {std::size_t{20}, kMaxConvertLength}) {
        std::wstring text;
        while (text.size() < length)
            text += L"Ng\u00ADêi sö dông MËt khÈu kh«ng hîp lÖ ";
        text.resize(length);
        report.Compare({"text to a BSTR in Unicode, " + std::to_string(length) + " characters",
                        "SysAllocStringLen", Target::AtMost, length == 20 ? 1.1 : 5, Each([&] {
                            BSTR result = SysAllocStringLen(nullptr, static_cast<UINT>(length));
                            ConvertText(result, text.data(), length, kToUnicode);
                            Keep(result[0]);
                            SysFreeString(result);
                        }),
                        Each([&] {
                            BSTR result = SysAllocStringLen(text.data(), static_cast<UINT>(length));
                            Keep(result[0]);
                            SysFreeString(result);
                        })});
    }
}

} // namespace

int main(int argc, char** argv) {
    const HRESULT started = CoInitialize(nullptr);
    int code = 1;
    try {
        Must(started, "COM does not start");
        Report report("calls and creation", argc, argv);
        // First: a created object keeps the DLL loaded.
        MeasureLoading(report);
        MeasureText(report);
        MeasureCalls(report);
        code = report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "com_bench: %s\n", error.what());
    }
    CoUninitialize();
    return code;
}
