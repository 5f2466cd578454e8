// Connection points: how an object tells listeners of events. The listener is advised on the source's
// connection point for the event interface, and unadvised by the cookie that it got. Interfaces of source
// objects, and hx::ConnectionPoint, which implements one.
#pragma once

#include <map>
#include <mutex>
#include <vector>

#include "platform/com/class_table.h"

struct CONNECTDATA {
    IUnknown* pUnk;
    DWORD dwCookie;
};

struct IConnectionPoint;
struct IConnectionPointContainer;

HX_IID(IEnumConnections, "B196B287-BAB4-101A-B69C-00AA00341D07")
struct IEnumConnections : IUnknown {
    // Up to `count` of them, [caller owns each object]; S_FALSE if there were fewer. `fetched` may be null
    // for one.
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, CONNECTDATA* connections, ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumConnections** copy) = 0;
};

HX_IID(IEnumConnectionPoints, "B196B285-BAB4-101A-B69C-00AA00341D07")
struct IEnumConnectionPoints : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points, ULONG* fetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** copy) = 0;
};

HX_IID(IConnectionPoint, "B196B286-BAB4-101A-B69C-00AA00341D07")
struct IConnectionPoint : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) = 0;
    // [caller owns]; null and E_UNEXPECTED once the source is gone.
    virtual HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) = 0;
    // `sink` is told of events until it is unadvised; a reference is taken. CONNECT_E_CANNOTCONNECT if it
    // lacks the event interface, E_UNEXPECTED once the source is gone; `*cookie`, never 0 on success, is 0 on
    // failure.
    virtual HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) = 0;
    // CONNECT_E_NOCONNECTION for an unknown cookie. An event that is on its way may still arrive afterwards.
    virtual HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) = 0;
};

HX_IID(IConnectionPointContainer, "B196B284-BAB4-101A-B69C-00AA00341D07")
struct IConnectionPointContainer : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) = 0;
    // [caller owns]; null on failure: CONNECT_E_NOCONNECTION for an interface that is not told of here.
    virtual HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) = 0;
};

namespace hx {

// The connection point of a source for one event interface. Made and held by the source, which disconnects it
// before it goes. Any thread. Linked into each component library (target hxmodule).
class ConnectionPoint final : public Implements<ConnectionPoint, FreeThreaded, IConnectionPoint> {
public:
    // `container` is the source, and not held.
    ConnectionPoint(IConnectionPointContainer& container, REFIID iid) : m_iid(iid), m_container(&container) {}

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

    // The sinks that are advised now, in the order in which they were, each as the event interface: to be
    // called without any lock of the source's. Throws std::bad_alloc.
    std::vector<ComPtr<IUnknown>> Sinks() const;

    // The source goes, and calls this in its destructor: lets go of it and of all sinks.
    void Disconnect();

private:
    const IID m_iid;
    mutable std::mutex m_mutex;  // guards what follows
    IConnectionPointContainer* m_container;
    std::map<DWORD, ComPtr<IUnknown>> m_sinks;
    DWORD m_last_cookie = 0;
    ModuleLock m_module_lock;
};

// The enumeration of a container that has this one point. E_POINTER, E_OUTOFMEMORY.
HRESULT EnumerateConnectionPoint(IConnectionPoint& point, IEnumConnectionPoints** points) noexcept;

}  // namespace hx
