// The scanner API's side of the simulated one.
#include "simulator/api/ApiObject.h"

#include "hxapi/HXApiErrors.h"
#include "hxapi/IHXApiEvents.h"
#include "simulator/api/CalibrationHandle.h"
#include "simulator/api/DeviceManagerObject.h"
#include "simulator/api/ProfileObject.h"
#include "simulator/calls/TextAcross.h"

namespace hx::simulator {
namespace {

consteval const Operation& Op(std::wstring_view name) {
    return OperationNamed(L"IHXApi", name);
}
consteval const Operation& InternalOp(std::wstring_view name) {
    return OperationNamed(L"IHXApiInternal", name);
}

// The objects that live, newest first. Without a destructor: a host may leave some to the process' end.
constinit std::mutex g_mutex;  // guards the list
constinit ApiObject* g_newest = nullptr;

}  // namespace

ApiObject::ApiObject()
    : m_listeners(Make<ConnectionPoint>(*this, IID_IHXApiEvents)),
      m_simulator(std::make_shared<Simulator>(m_listeners)),
      m_gate(m_simulator->Connection(), IID_IHXApi),
      m_events(Make<EventPoint>(m_listeners, m_simulator->Connection())) {
    const std::lock_guard guard(g_mutex);
    m_older = g_newest;
    g_newest = this;
}

ApiObject::~ApiObject() {
    {
        const std::lock_guard guard(g_mutex);
        ApiObject** place = &g_newest;
        while (*place != this) place = &(*place)->m_older;
        *place = m_older;
    }
    m_listeners->Disconnect();
}

ComPtr<ApiObject> ApiObject::Newest() {
    const std::lock_guard guard(g_mutex);
    // One that is on its way out waits in its destructor.
    ComPtr<ApiObject> living;
    for (ApiObject* each = g_newest; each && !living; each = each->m_older)
        living = each->ReferenceToLiving();
    return living;
}

HRESULT ApiObject::GetConnectionState(int32_t* state, IErrorInfo** detail) {
    const auto tell = [&] {
        if (state == nullptr) return E_POINTER;
        *state = m_simulator->Connection()->State();
        return S_OK;
    };
    return m_gate.Perform(Op(L"GetConnectionState"), {}, tell, {detail});
}

HRESULT ApiObject::Resume(IErrorInfo** detail) {
    // A scanner that was plugged in becomes ready by itself.
    return m_gate.Perform(Op(L"Resume"), {}, [] { return S_OK; }, {detail});
}

HRESULT ApiObject::GetDeviceManager(IDeviceManager** manager, IErrorInfo** detail) {
    if (manager) *manager = nullptr;
    const auto give = [&] {
        if (manager == nullptr) return E_POINTER;
        *manager = Make<DeviceManagerObject>(m_simulator).detach();
        return S_OK;
    };
    return m_gate.Perform(Op(L"GetDeviceManager"), {}, give, {detail});
}

HRESULT ApiObject::GetCurrentProfile(IHXProfile** profile, IErrorInfo** detail) {
    if (profile) *profile = nullptr;
    const auto give = [&] {
        if (profile == nullptr) return E_POINTER;
        *profile = Make<ProfileObject>(m_simulator).detach();
        return S_OK;
    };
    return m_gate.Perform(InternalOp(L"GetCurrentProfile"), {}, give, {detail});
}

HRESULT ApiObject::CreateCalibrationHandle(BSTR device_internal_name, REFIID iid, IUnknown** object,
                                           IErrorInfo** detail) {
    if (object) *object = nullptr;
    const auto give = [&] {
        if (object == nullptr) return E_POINTER;
        if (!m_simulator->IsDevice(TextOf(device_internal_name))) return HX_E_NOTFOUND;
        // The caller asks for its interface by itself; that it is there is checked here.
        const auto handle = Make<CalibrationHandle>(m_simulator);
        ComPtr<IUnknown> wanted;
        const HRESULT found = handle.query_to(iid, wanted.put_void());
        if (SUCCEEDED(found)) *object = handle.as<IUnknown>().detach();
        return found;
    };
    return m_gate.Perform(InternalOp(L"CreateCalibrationHandle"), {device_internal_name}, give, {detail});
}

HRESULT ApiObject::GetLocale(BSTR* locale) {
    if (locale) *locale = nullptr;
    return m_gate.Perform(OperationNamed(L"IHXLocale", L"GetLocale"), {},
                          [&] { return GiveText(m_simulator->Locale(), locale); });
}

HRESULT ApiObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return EnumerateConnectionPoint(*m_events, points);
}

HRESULT ApiObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (!(iid == IID_IHXApiEvents)) return CONNECT_E_NOCONNECTION;
    return ComPtr<IConnectionPoint>(m_events).copy_to(point);
}

}  // namespace hx::simulator
