#include "platform/com/class_table.h"

#include <algorithm>
#include <atomic>

namespace hx {
namespace {

// Plain static storage without a destructor: objects may outlive every other static of the library at exit.
std::atomic<uint32_t> g_alive{0};  // objects, and references to factories that clients hold
std::atomic<uint32_t> g_server_locks{0};

HRESULT UnlockServer() {
    // A surplus unlock must not eat the lock of another client.
    uint32_t locks = g_server_locks.load();
    do {
        if (locks == 0) return E_UNEXPECTED;
    } while (!g_server_locks.compare_exchange_weak(locks, locks - 1));
    return S_OK;
}

}  // namespace

ModuleLock::ModuleLock() noexcept {
    ++g_alive;
}
ModuleLock::~ModuleLock() {
    --g_alive;
}

// Counts itself, since a client's reference keeps the library loaded and the table's own does not.
class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(const ClassRow& row) : m_row(row) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        const bool known = iid == uuid_of<IUnknown>() || iid == uuid_of<IClassFactory>();
        *object = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        ++g_alive;
        return ++m_references;
    }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = Drop();
        --g_alive;
        return left;
    }
    // Gives the table's own reference back.
    ULONG Drop() {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return AtBoundary([&] { return m_row.create(iid, object); });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (!lock) return UnlockServer();
        ++g_server_locks;
        return S_OK;
    }

private:
    const ClassRow& m_row;
    std::atomic<uint32_t> m_references{1};
};

ModuleClasses::~ModuleClasses() {
    for (ClassFactory* factory : m_factories) {
        if (factory) factory->Drop();
    }
}

HRESULT ModuleClasses::GetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    const auto row =
        std::find_if(m_rows.begin(), m_rows.end(), [&](const ClassRow& each) { return each.clsid == clsid; });
    if (row == m_rows.end()) return CLASS_E_CLASSNOTAVAILABLE;
    return AtBoundary([&] {
        const std::lock_guard guard(m_mutex);
        return SUCCEEDED(FactoryOf(*row).QueryInterface(iid, object)) ? S_OK : CLASS_E_CLASSNOTAVAILABLE;
    });
}

ClassFactory& ModuleClasses::FactoryOf(const ClassRow& row) {
    if (m_factories.empty()) m_factories.resize(m_rows.size());
    ClassFactory*& factory = m_factories[static_cast<size_t>(&row - m_rows.data())];
    if (!factory) factory = new ClassFactory(row);
    return *factory;
}

HRESULT ModuleClasses::CanUnloadNow() const noexcept {
    return g_alive == 0 && g_server_locks == 0 ? S_OK : S_FALSE;
}

}  // namespace hx
