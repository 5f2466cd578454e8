#include "tests/platform/test_component.h"

#include <atomic>

#include "platform/com/class_table.h"
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
