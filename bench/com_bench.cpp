// SPDX-License-Identifier: MIT
// Late-bound calls beside ITypeInfo::Invoke alone, loading and creating beside servers without a
// runtime library, a text handed over as a BSTR, and the one derivation of a logon.
#include "kit/benchmark.h"
#include "passwords/password_hash.h"
#include "support/check_hr.h"
#include "support/late_bound.h"
#include "text/tcvn3.h"
#include "vndesk_idl.h"

#include <windows.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

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

// A DLL that is loaded by its path, as COM does it once it knows the path.
class Server {
public:
    Server(std::wstring path, REFCLSID clsid) : path_(std::move(path)), clsid_(clsid) {}

    void Load() {
        module_ = LoadLibraryW(path_.c_str());
        if (!module_)
            throw std::runtime_error("a DLL cannot be loaded");
    }
    void Create() {
        using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
        const auto get = reinterpret_cast<GetClassObject>(
            reinterpret_cast<void*>(GetProcAddress(module_, "DllGetClassObject")));
        ComPtr<IClassFactory> factory;
        Must(get(clsid_, IID_PPV_ARGS(&factory)), "no class object");
        Must(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object_)), "no object");
    }
    void Unload() {
        object_.Reset();
        FreeLibrary(module_);
    }

private:
    const std::wstring path_;
    const CLSID clsid_;
    HMODULE module_ = nullptr;
    ComPtr<IUnknown> object_;
};

Work LoadAndCreate(Server& server) {
    return Between([] {},
                   [&server] {
                       server.Load();
                       server.Create();
                   },
                   [&server] { server.Unload(); });
}

void CreateByRegistry(ComPtr<IUnknown>& object) {
    Must(CoCreateInstance(__uuidof(Varnok), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)),
         "VnDesk.Varnok cannot be created: is vndesk.dll registered?");
}

void MeasureLoading(Report& report) {
    wchar_t own[MAX_PATH];
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    std::wstring folder = own;
    folder.resize(folder.find_last_of(L'\\'));
    // Every program with windows and COM has these loaded; they are no part of what the library
    // costs.
    for (const wchar_t* name : {L"user32.dll", L"gdi32.dll", L"oleaut32.dll"})
        LoadLibraryW(name);
    const std::wstring path = folder + L"\\..\\vndesk.dll";
    Server library(path, __uuidof(Varnok));
    Server bare(folder + L"\\bare.dll", CLSID_NULL);
    Server importing(folder + L"\\bare_importing.dll", CLSID_NULL);
    report.Compare({"load the DLL, create an object", "a DLL without a runtime library",
                    Target::AtMost, 1.3, LoadAndCreate(library), LoadAndCreate(bare)});
    report.Compare({"load the DLL, create an object", "the same importing the same libraries",
                    Target::Nothing, 0, LoadAndCreate(library), LoadAndCreate(importing)});

    ComPtr<IUnknown> object;
    report.Compare({"first object through the registry", "load the DLL, create an object",
                    Target::Nothing, 0,
                    Between([] {}, [&object] { CreateByRegistry(object); },
                            [&object] {
                                object.Reset();
                                CoFreeUnusedLibrariesEx(0, 0);
                                if (GetModuleHandleW(L"vndesk.dll"))
                                    throw std::runtime_error("the DLL does not go");
                            }),
                    LoadAndCreate(library)});
    ComPtr<IUnknown> first;
    CreateByRegistry(first);
    ComPtr<IClassFactory> factory;
    Must(CoGetClassObject(__uuidof(Varnok), CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory)),
         "no class object");
    report.Compare({"further objects through the registry", "through a class object that was kept",
                    Target::Nothing, 0, Each([&object] { CreateByRegistry(object); }), Each([&] {
                        Must(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)), "no object");
                    })});
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data))
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

void MeasurePassword(Report& report) {
    constexpr const wchar_t* kRecord = L"pbkdf2-sha256$600000$8PHy8/T19vf4+fr7/P3+/w==$"
                                       L"W24LzSARS1mT/HQpqE30eTSimJ8kP+VUY/WLK9qo5JQ=";
    // Without what is loaded by the first one.
    vndesk::MatchPassword(L"Mật khẩu 123", L"pbkdf2-sha256$1$8PHy8/T19vf4+fr7/P3+/w==$"
                                           L"CwakGkpot9tauxemaHrO05BfE0DHhOwmcv1WrCkRL1s=");
    std::vector<double> taken;
    for (int i = 0; i < 3; ++i) {
        const double begin = Now();
        Keep(vndesk::MatchPassword(L"Mật khẩu 123", kRecord));
        taken.push_back((Now() - begin) / 1e6);
    }
    std::nth_element(taken.begin(), taken.begin() + 1, taken.end());
    report.Note({"a password against its record", "ms", taken[1], 1000});
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
        MeasurePassword(report);
        code = report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "com_bench: %s\n", error.what());
    }
    CoUninitialize();
    return code;
}
