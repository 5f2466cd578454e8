#include "simulator/api/ProfileObject.h"

#include "platform/com/text_array.h"

namespace hx::simulator {

ProfileObject::ProfileObject(std::shared_ptr<Simulator> simulator)
    : m_simulator(std::move(simulator)), m_gate(m_simulator->Connection(), IID_IHXProfile) {}

HRESULT ProfileObject::GetDriverSelection(SAFEARRAY** internal_names) {
    if (internal_names) *internal_names = nullptr;
    return m_gate.Perform(OperationNamed(L"IHXProfile", L"GetDriverSelection"), {}, [&] {
        if (internal_names == nullptr) return E_POINTER;
        // No localiser, no trigger device.
        *internal_names = TextArray({L"", L"", m_simulator->Model().driver_internal_name}).detach();
        return S_OK;
    });
}

}  // namespace hx::simulator
