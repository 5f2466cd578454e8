#include "platform/com/connection_point.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/com/boundary.h"

namespace hx {
namespace {

struct Connection {
    ComPtr<IUnknown> sink;
    DWORD cookie;
};

// How the caller gets an item: with a reference of its own.
CONNECTDATA HandOut(const Connection& connection) {
    return {ComPtr(connection.sink).detach(), connection.cookie};
}
IConnectionPoint* HandOut(const ComPtr<IConnectionPoint>& point) {
    return ComPtr(point).detach();
}

// An enumeration of what there was when it was made; its copies share that.
template <class Interface, class Given, class Item>
class Enumerator final : public Implements<Enumerator<Interface, Given, Item>, FreeThreaded, Interface> {
public:
    using Items = std::shared_ptr<const std::vector<Item>>;

    Enumerator(Items items, size_t next) : m_items(std::move(items)), m_next(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* given, ULONG* fetched) override {
        if (fetched) *fetched = 0;
        if (!given || (!fetched && count != 1)) return E_POINTER;
        if (count > 0) *given = {};
        const auto [first, taken] = Take(count);
        for (ULONG i = 0; i < taken; ++i) given[i] = HandOut((*m_items)[first + i]);
        if (fetched) *fetched = taken;
        return taken == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        return Take(count).second == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        const std::lock_guard lock(m_mutex);
        m_next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** copy) override {
        if (!copy) return E_POINTER;
        *copy = nullptr;
        return AtBoundary([&] {
            *copy = Make<Enumerator>(m_items, Take(0).first).detach();
            return S_OK;
        });
    }

private:
    // Moves on by up to `count` items: from where, and by how many.
    std::pair<size_t, ULONG> Take(ULONG count) {
        const std::lock_guard lock(m_mutex);
        const size_t first = m_next;
        const ULONG taken = static_cast<ULONG>(std::min<size_t>(count, m_items->size() - first));
        m_next += taken;
        return {first, taken};
    }

    const Items m_items;
    std::mutex m_mutex;
    size_t m_next;
    ModuleLock m_module_lock;
};

using ConnectionEnumerator = Enumerator<IEnumConnections, CONNECTDATA, Connection>;
using PointEnumerator = Enumerator<IEnumConnectionPoints, IConnectionPoint*, ComPtr<IConnectionPoint>>;

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
