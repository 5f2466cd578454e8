// The connection point of the simulated scanner API for its events. Any thread.
#pragma once

#include "simulator/api/Simulator.h"

namespace hx::simulator {

class EventPoint final : public Implements<EventPoint, FreeThreaded, IConnectionPoint> {
public:
    EventPoint(ComPtr<ConnectionPoint> point, std::shared_ptr<Line> line);

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

private:
    ModuleLock m_module_lock;
    const ComPtr<ConnectionPoint> m_point;
    const Gate m_gate;
};

}  // namespace hx::simulator
