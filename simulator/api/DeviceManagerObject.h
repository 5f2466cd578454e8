// What the simulated scanner API tells of its driver and device. Any thread.
#pragma once

#include "hxapi/IDeviceManager.h"
#include "platform/com/implements.h"
#include "simulator/api/Simulator.h"

namespace hx::simulator {

class DeviceManagerObject final : public Implements<DeviceManagerObject, FreeThreaded, IDeviceManager> {
public:
    explicit DeviceManagerObject(std::shared_ptr<Simulator> simulator);

    HRESULT STDMETHODCALLTYPE GetDriverProperties(BSTR category, BSTR internal_name, BSTR* xml,
                                                  IErrorInfo** detail) override;

private:
    ModuleLock m_module_lock;
    const std::shared_ptr<Simulator> m_simulator;
    const Gate m_gate;
};

}  // namespace hx::simulator
