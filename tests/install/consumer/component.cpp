// A component library of somebody else, with one class.
#include "platform/com/class_table.h"
#include "platform/com/implements_dispatch.h"

HX_IID(IGauge, "0E5B7C14-93D2-4A6F-8C31-5F27D9A0B684")
struct IGauge : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Reading(double* reading) = 0;
};

namespace {

constexpr CLSID CLSID_Gauge = hx::MakeGuid("7A1D40E9-26BF-4C85-9E03-B8C65F12D7A4");

class Gauge final : public hx::ImplementsDispatch<Gauge, hx::SingleThreaded, IGauge, IDispatch> {
public:
    static const hx::DispatchType kDispatchType;

    HRESULT STDMETHODCALLTYPE get_Reading(double* reading) override {
        *reading = 0.25;
        return S_OK;
    }

private:
    const hx::ModuleLock m_lock;
};

constexpr hx::DispatchMember kMembers[] = {
    hx::DispatchMembersOf<IGauge>::PropertyGet<&IGauge::get_Reading>(1, L"Reading"),
};
const hx::DispatchType Gauge::kDispatchType{L"IGauge", IID_IGauge, kMembers};

constexpr hx::ClassRow kClasses[] = {
    {CLSID_Gauge, L"Acme.Gauge.1", L"Acme.Gauge", L"Gauge", L"Gauge", L"Both", &hx::CreateObject<Gauge>},
};

hx::ModuleClasses& Classes() {
    static hx::ModuleClasses classes(kClasses);
    return classes;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return Classes().GetClassObject(clsid, iid, object);
}

STDAPI DllCanUnloadNow() {
    return Classes().CanUnloadNow();
}
