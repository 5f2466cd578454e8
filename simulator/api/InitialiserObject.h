// Leads controls to the simulated scanner API: the newest of the process, or a new one if there is none. Any
// thread.
#pragma once

#include "hxapi/ICtrlsInitialiser.h"
#include "platform/com/class_table.h"
#include "platform/com/implements.h"
#include "simulator/calls/Gate.h"

namespace hx::simulator {

class InitialiserObject final : public Implements<InitialiserObject, FreeThreaded, ICtrlsInitialiser> {
public:
    InitialiserObject();

    HRESULT STDMETHODCALLTYPE GetHXApi(IUnknown** api) override;

private:
    ModuleLock m_module_lock;
    const Gate m_gate;
};

}  // namespace hx::simulator
