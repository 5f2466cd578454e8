#include "tests/platform/test_component.h"

#include <atomic>
#include <stdexcept>

#include "platform/com/bstr.h"
#include "platform/com/class_table.h"
#include "platform/com/errorinfo.h"
#include "platform/com/loader.h"

namespace {

std::atomic<int> g_created{0};

class Tally final : public hx::Implements<Tally, hx::FreeThreaded, ITally> {
public:
    Tally() { ++g_created; }
    int Created() override { return g_created; }

private:
    hx::ModuleLock m_lock;
};

// An object of this library that does not keep it loaded.
class OwnErrorInfo final : public hx::Implements<OwnErrorInfo, hx::FreeThreaded, IErrorInfo> {
public:
    HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) override {
        *guid = CLSID_Tally;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR* source) override {
        return hx::Bstr(L"Hx.Tally.2").copy_to(source);
    }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) override {
        return hx::Bstr(L"no room for a tally").copy_to(description);
    }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* help_file) override { return hx::Bstr().copy_to(help_file); }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }
};

constexpr hx::ClassRow rows[] = {
    {CLSID_Tally, L"Hx.Tally.2", L"Hx.Tally", L"Tally", L"Counts", L"Both", &hx::CreateObject<Tally>},
};

hx::ModuleClasses& Classes() {
    static hx::ModuleClasses classes(rows);
    return classes;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    if (clsid == CLSID_Unloading) CoFreeUnusedLibraries();
    return Classes().GetClassObject(clsid, iid, object);
}

STDAPI DllCanUnloadNow() {
    return Classes().CanUnloadNow();
}

STDAPI DllRegisterServer() {
    SetErrorInfo(0, hx::Make<OwnErrorInfo>().as<IErrorInfo>().get());
    return SELFREG_E_CLASS;
}

// The first time it leaves the library locked; the second time it unlocks it, and fails.
STDAPI DllUnregisterServer() {
    static bool is_locked = false;
    is_locked = !is_locked;
    hx::ComPtr<IClassFactory> factory;
    Classes().GetClassObject(CLSID_Tally, IID_IClassFactory, factory.put_void());
    factory->LockServer(is_locked);
    if (!is_locked) throw std::runtime_error("unlocked");
    return S_OK;
}
