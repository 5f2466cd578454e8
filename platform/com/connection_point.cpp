#include "platform/com/connection_point.h"

#include <memory>
#include <utility>

#include "platform/com/boundary.h"
#include "platform/com/enumerator.h"

namespace hx {
namespace {

struct Connection {
    ComPtr<IUnknown> sink;
    DWORD cookie;
};

// The caller gets a reference of its own.
struct HandOut {
    CONNECTDATA operator()(const Connection& connection) const {
        return {ComPtr(connection.sink).detach(), connection.cookie};
    }
    IConnectionPoint* operator()(const ComPtr<IConnectionPoint>& point) const {
        return ComPtr(point).detach();
    }
};

using ConnectionEnumerator = Enumerator<IEnumConnections, CONNECTDATA, Connection, HandOut>;
using PointEnumerator =
    Enumerator<IEnumConnectionPoints, IConnectionPoint*, ComPtr<IConnectionPoint>, HandOut>;

}  // namespace

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (!iid) return E_POINTER;
    *iid = m_iid;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    *container = nullptr;
    const std::lock_guard lock(m_mutex);
    if (!m_container) return E_UNEXPECTED;
    // The first reference belongs to a source whose last one is gone and which is on its way to Disconnect:
    // nobody may have it, and it must not be given back.
    if (m_container->AddRef() == 1) {
        m_container = nullptr;
        return E_UNEXPECTED;
    }
    *container = m_container;
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (!cookie) return E_POINTER;
    *cookie = 0;
    if (!sink) return E_POINTER;
    return AtBoundary([&]() -> HRESULT {
        // Declared in front of the lock: should it have to be released here, then without.
        ComPtr<IUnknown> listener;
        if (FAILED(sink->QueryInterface(m_iid, listener.put_void()))) return CONNECT_E_CANNOTCONNECT;
        const std::lock_guard lock(m_mutex);
        if (!m_container) return E_UNEXPECTED;
        DWORD next = m_last_cookie;
        do ++next;
        while (next == 0 || m_sinks.contains(next));
        m_sinks.emplace(next, std::move(listener));
        *cookie = m_last_cookie = next;
        return S_OK;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    decltype(m_sinks)::node_type connection;  // goes when the lock is gone: a sink may call in again
    const std::lock_guard lock(m_mutex);
    connection = m_sinks.extract(cookie);
    return connection ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    if (!connections) return E_POINTER;
    *connections = nullptr;
    return AtBoundary([&] {
        const auto items = std::make_shared<std::vector<Connection>>();
        {
            const std::lock_guard lock(m_mutex);
            items->reserve(m_sinks.size());
            for (const auto& [cookie, sink] : m_sinks) items->push_back({sink, cookie});
        }
        *connections = Make<ConnectionEnumerator>(items, 0u).detach();
        return S_OK;
    });
}

std::vector<ComPtr<IUnknown>> ConnectionPoint::Sinks() const {
    std::vector<ComPtr<IUnknown>> sinks;
    const std::lock_guard lock(m_mutex);
    sinks.reserve(m_sinks.size());
    for (const auto& [cookie, sink] : m_sinks) sinks.push_back(sink);
    return sinks;
}

void ConnectionPoint::Disconnect() {
    decltype(m_sinks) gone;  // released when the lock is gone
    const std::lock_guard lock(m_mutex);
    m_container = nullptr;
    gone.swap(m_sinks);
}

HRESULT EnumerateConnectionPoint(IConnectionPoint& point, IEnumConnectionPoints** points) noexcept {
    if (!points) return E_POINTER;
    *points = nullptr;
    return AtBoundary([&] {
        using Point = ComPtr<IConnectionPoint>;
        *points = Make<PointEnumerator>(std::make_shared<std::vector<Point>>(1, Point(&point)), 0u).detach();
        return S_OK;
    });
}

}  // namespace hx
