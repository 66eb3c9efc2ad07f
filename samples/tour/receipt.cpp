// SPDX-License-Identifier: MIT
#include "receipt.h"

#include <comutil.h>

#include "create.h"
#include "receipt_form.h"

using Microsoft::WRL::ComPtr;

namespace {

// The library adds the condition behind the column.
constexpr wchar_t kByName[] = L"Select MaKH,[Name] From KhachHang Where [Name]";
constexpr wchar_t kByCode[] = L"Select MaKH,[Name] From KhachHang Where MaKH";
constexpr long kAsOnPaper = vnWordsCapital | vnWordsChan;

class Form {
public:
    Form(const std::wstring& connect, ISettings* settings)
        : customer_(Create<ISelItem2>(L"VnDesk.cSelItem")), text_(Create<IText>(L"VnDesk.clsText")),
          tools_(Create<IVarnok2>(L"VnDesk.Varnok")) {
        Check(customer_->putref_Settings(settings));
        Check(customer_->put_ActiveConnection(_variant_t(connect.c_str())));
        Check(customer_->put_SqlName(_bstr_t(kByName)));
        Check(customer_->put_SqlID(_bstr_t(kByCode)));
        Check(customer_->put_LookUpKeys(VARIANT_TRUE));
        Check(customer_->put_TabCommits(VARIANT_TRUE));
    }

    void Show(HWND owner) {
        DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_RECEIPT), owner, Procedure,
                        reinterpret_cast<LPARAM>(this));
    }
    const Receipt& Result() const { return receipt_; }

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG)
            SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto* form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, DWLP_USER));
        if (!form)
            return FALSE;
        try {
            return form->On(window, message, wParam);
        } catch (const HostError& error) {
            MessageBoxW(window, error.description.c_str(), L"VnDesk", MB_ICONERROR);
            return TRUE;
        }
    }

    INT_PTR On(HWND window, UINT message, WPARAM wParam) {
        switch (message) {
        case WM_INITDIALOG:
            Check(customer_->SetTextSelID(Handle(window, IDC_CODE)));
            Check(customer_->SetTextSel(Handle(window, IDC_NAME)));
            Check(tools_->EnterMovesOn(Handle(window), VARIANT_TRUE));
            return TRUE;
        case WM_COMMAND:
            if (wParam == MAKEWPARAM(IDC_AMOUNT, EN_CHANGE))
                ShowWords(window);
            else if (wParam == IDOK)
                Accept(window);
            else if (wParam == IDCANCEL)
                EndDialog(window, 0);
            return TRUE;
        }
        return FALSE;
    }

    // Nothing is said while the amount is no number yet.
    void ShowWords(HWND window) {
        receipt_.amount = TextOf(window, IDC_AMOUNT);
        _bstr_t words;
        const HRESULT result = text_->AmountToWords(
            _variant_t(receipt_.amount.c_str()), _bstr_t(L"VND"), kAsOnPaper, words.GetAddress());
        receipt_.words = SUCCEEDED(result) && words.length() ? words.GetBSTR() : L"";
        SetDlgItemTextW(window, IDC_WORDS, receipt_.words.c_str());
    }

    // What is missing gets the keyboard.
    void Accept(HWND window) {
        _bstr_t code, name;
        Check(customer_->get_SelID(code.GetAddress()));
        Check(customer_->get_SelName(name.GetAddress()));
        const int missing = !code.length() ? IDC_NAME : receipt_.words.empty() ? IDC_AMOUNT : 0;
        if (missing) {
            MessageBeep(MB_OK);
            SetFocus(GetDlgItem(window, missing));
            return;
        }
        receipt_.customer = code.GetBSTR();
        receipt_.name = name.length() ? name.GetBSTR() : L"";
        EndDialog(window, 0);
    }

    static long Handle(HWND window, int control = 0) {
        const HWND handle = control ? GetDlgItem(window, control) : window;
        return static_cast<long>(reinterpret_cast<LONG_PTR>(handle));
    }
    static std::wstring TextOf(HWND window, int control) {
        wchar_t text[64];
        return {text, GetDlgItemTextW(window, control, text, ARRAYSIZE(text))};
    }

    ComPtr<ISelItem2> customer_;
    ComPtr<IText> text_;
    ComPtr<IVarnok2> tools_;
    Receipt receipt_;
};

} // namespace

Receipt AskForReceipt(HWND owner, const std::wstring& connect, ISettings* settings) {
    Form form(connect, settings);
    form.Show(owner);
    return form.Result();
}
