// The current profile of the simulated scanner API: its scanner, and nothing else. Any thread.
#pragma once

#include "hxapi/IHXProfile.h"
#include "platform/com/implements.h"
#include "simulator/api/Simulator.h"

namespace hx::simulator {

class ProfileObject final : public Implements<ProfileObject, FreeThreaded, IHXProfile> {
public:
    explicit ProfileObject(std::shared_ptr<Simulator> simulator);

    HRESULT STDMETHODCALLTYPE GetDriverSelection(SAFEARRAY** internal_names) override;

private:
    ModuleLock m_module_lock;
    const std::shared_ptr<Simulator> m_simulator;
    const Gate m_gate;
};

}  // namespace hx::simulator
