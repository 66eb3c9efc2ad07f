// SPDX-License-Identifier: MIT
// Varnok: small utilities for hosts.
#pragma once

#include "comkit/object/dispatch.h"
#include "vndesk_idl.h"

namespace vndesk {

class Varnok final : public ClassObject<Varnok, ::Varnok, IVarnok2> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.Varnok";

    STDMETHODIMP GetUSName(BSTR* name) override;
    STDMETHODIMP GetPCName(BSTR* name) override;
    STDMETHODIMP BackUpData(BSTR pathData, BSTR fileName, long* done) override;
    STDMETHODIMP ESendKey(long key, long keyEvent) override;
    STDMETHODIMP Gui_Phim(long key, long shift) override;
    STDMETHODIMP CopyFile(BSTR existing, BSTR target, long failIfExists, long* done) override;
    STDMETHODIMP WinHelp(long window, BSTR helpFile, long command, long data, long* done) override;
    STDMETHODIMP WriteRegA(BSTR section, BSTR key, BSTR value, BSTR fileName) override;
    STDMETHODIMP ReadRegVlA(BSTR section, BSTR key, BSTR fileName, BSTR* value) override;
    STDMETHODIMP Sign(BSTR text, BSTR* sign) override;
    STDMETHODIMP CvNStr(VARIANT number, BSTR* text) override;
    STDMETHODIMP CvTextToN(BSTR text, double* number) override;
    STDMETHODIMP Mid1(BSTR text, long position, BSTR* character) override;
    STDMETHODIMP FindShow(VARIANT connection, BSTR table, BSTR* condition) override;
    STDMETHODIMP EnterMovesOn(long window, VARIANT_BOOL on) override;

    // As hosts of 1.0 know it.
    static REFIID ErrorInterface() { return __uuidof(IVarnok); }

protected:
    void* Find(REFIID iid) override {
        void* found = DescribedObject::Find(iid);
        return found ? found : FindInherited(iid, InterfaceList<IVarnok>());
    }
};

} // namespace vndesk
