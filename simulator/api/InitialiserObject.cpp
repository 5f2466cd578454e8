#include "simulator/api/InitialiserObject.h"

#include "simulator/api/ApiObject.h"
#include "simulator/api/NewestLine.h"

namespace hx::simulator {

InitialiserObject::InitialiserObject() : m_gate(MakeNewestLine(), IID_ICtrlsInitialiser) {}

HRESULT InitialiserObject::GetHXApi(IUnknown** api) {
    if (api) *api = nullptr;
    return m_gate.Perform(OperationNamed(L"ICtrlsInitialiser", L"GetHXApi"), {}, [&] {
        if (api == nullptr) return E_POINTER;
        ComPtr<ApiObject> found = ApiObject::Newest();
        if (!found) found = Make<ApiObject>();
        *api = found.as<IUnknown>().detach();
        return S_OK;
    });
}

}  // namespace hx::simulator
