/* SPDX-License-Identifier: MIT
 * A COM server with one class and nothing else, not even a runtime library. */
#define COBJMACROS
#define INITGUID
#include <windows.h>
#include <unknwn.h>

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* reserved) {
    (void)reserved;
    if (reason == DLL_PROCESS_ATTACH)
        DisableThreadLibraryCalls(instance);
    return TRUE;
}

typedef struct {
    IUnknownVtbl* table;
    LONG references;
} Object;

static HRESULT STDMETHODCALLTYPE Query(IUnknown* self, REFIID iid, void** result) {
    (void)iid;
    *result = self;
    InterlockedIncrement(&((Object*)self)->references);
    return S_OK;
}
static ULONG STDMETHODCALLTYPE AddRef(IUnknown* self) {
    return InterlockedIncrement(&((Object*)self)->references);
}
static ULONG STDMETHODCALLTYPE Release(IUnknown* self) {
    const LONG left = InterlockedDecrement(&((Object*)self)->references);
    if (left == 0)
        HeapFree(GetProcessHeap(), 0, self);
    return left;
}
static IUnknownVtbl objectTable = {Query, AddRef, Release};

static HRESULT STDMETHODCALLTYPE FactoryQuery(IClassFactory* self, REFIID iid, void** result) {
    (void)iid;
    *result = self;
    return S_OK;
}
static ULONG STDMETHODCALLTYPE FactoryReference(IClassFactory* self) {
    (void)self;
    return 2;
}
static HRESULT STDMETHODCALLTYPE Create(IClassFactory* self, IUnknown* outer, REFIID iid, void** result) {
    Object* object = HeapAlloc(GetProcessHeap(), 0, sizeof(Object));
    (void)self;
    (void)outer;
    (void)iid;
    if (!object)
        return E_OUTOFMEMORY;
    object->table = &objectTable;
    object->references = 1;
    *result = object;
    return S_OK;
}
static HRESULT STDMETHODCALLTYPE Lock(IClassFactory* self, BOOL lock) {
    (void)self;
    (void)lock;
    return S_OK;
}
static IClassFactoryVtbl factoryTable = {FactoryQuery, FactoryReference, FactoryReference, Create, Lock};
static struct {
    IClassFactoryVtbl* table;
} factory = {&factoryTable};

HRESULT WINAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** result) {
    (void)clsid;
    (void)iid;
    *result = &factory;
    return S_OK;
}
