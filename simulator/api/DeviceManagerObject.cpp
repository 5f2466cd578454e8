#include "simulator/api/DeviceManagerObject.h"

#include "hxapi/HXApiErrors.h"
#include "simulator/calls/TextAcross.h"

namespace hx::simulator {

DeviceManagerObject::DeviceManagerObject(std::shared_ptr<Simulator> simulator)
    : m_simulator(std::move(simulator)), m_gate(m_simulator->Connection(), IID_IDeviceManager) {}

HRESULT DeviceManagerObject::GetDriverProperties(BSTR category, BSTR internal_name, BSTR* xml,
                                                 IErrorInfo** detail) {
    if (xml) *xml = nullptr;
    constexpr const Operation& kOperation = OperationNamed(L"IDeviceManager", L"GetDriverProperties");
    const auto tell = [&] {
        if (xml == nullptr) return E_POINTER;
        const bool is_known = TextOf(category) == kHXCategoryScanner &&
                              TextOf(internal_name) == m_simulator->Model().driver_internal_name;
        return is_known ? GiveText(m_simulator->Properties(), xml) : HX_E_NOTFOUND;
    };
    return m_gate.Perform(kOperation, {category, internal_name}, tell, {detail});
}

}  // namespace hx::simulator
