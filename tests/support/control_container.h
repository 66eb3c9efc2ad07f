// SPDX-License-Identifier: MIT
// A container for one control, as small as containers can be: a window, the sites that controls
// talk to, ambient properties. It notes what the control asks of it.
#pragma once
#include <functional>
#include <map>
#include <string>
#include <vector>
#include <windows.h>
#include <ocidl.h>
#include <comutil.h>
#include <wrl/client.h>

namespace vndesk::test {

// Lives on the stack, so its reference count is for the record only.
class ControlContainer final : public IOleClientSite,
                               public IOleInPlaceSite,
                               public IOleInPlaceFrame,
                               public IOleControlSite,
                               public IDispatch {
public:
    explicit ControlContainer(HWND window, RECT rect = {10, 10, 210, 40})
        : rect(rect), window_(window) {}
    ~ControlContainer() { Close(); }
    ControlContainer(const ControlContainer&) = delete;
    ControlContainer& operator=(const ControlContainer&) = delete;

    // Gives the control its site, as containers do before anything else.
    void Take(IUnknown* control);
    HRESULT DoVerb(LONG verb);
    void Move(RECT newRect);
    // Ends the embedding; the control is released.
    void Close();
    bool Has(const std::wstring& call) const;

    std::map<DISPID, _variant_t> ambients;
    std::vector<std::wstring> calls;
    RECT rect;
    ULONG references = 1;
    HRESULT mayActivate = S_OK;
    // Obeys when the control asks for another rectangle.
    bool obeys = true;
    // What the container does when the control is no longer the active one.
    std::function<void()> onUIDeactivate;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    STDMETHODIMP SaveObject() override { return Note(L"SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return Note(L"ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return mayActivate; }
    STDMETHODIMP OnInPlaceActivate() override { return Note(L"OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() override { return Note(L"OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT position, LPRECT clip,
                                  LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override {
        if (onUIDeactivate)
            onUIDeactivate();
        return Note(L"OnUIDeactivate");
    }
    STDMETHODIMP OnInPlaceDeactivate() override { return Note(L"OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT wanted) override;

    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return S_OK; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** control) override;
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override;
    STDMETHODIMP OnFocus(BOOL has) override;
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

private:
    HRESULT Note(const wchar_t* call) {
        calls.push_back(call);
        return S_OK;
    }

    HWND window_;
    Microsoft::WRL::ComPtr<IOleObject> object_;
};

} // namespace vndesk::test
