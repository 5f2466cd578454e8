// Enumerator: the objects IEnum... over items of any kind, for functions that give one out. It enumerates
// what there was when it was made; its copies share that. Each component library links its own (target
// hxmodule). Usable on any thread.
#pragma once

#include <algorithm>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/com/boundary.h"
#include "platform/com/class_table.h"
#include "platform/com/implements.h"

namespace hx {

// `HandOut` makes of an Item what the caller gets, and owns; if it throws, the caller keeps what `*fetched`
// counts.
template <class Interface, class Given, class Item, class HandOut>
class Enumerator final
    : public Implements<Enumerator<Interface, Given, Item, HandOut>, FreeThreaded, Interface> {
public:
    using Items = std::shared_ptr<const std::vector<Item>>;

    Enumerator(Items items, size_t next) : m_items(std::move(items)), m_next(next) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* given, ULONG* fetched) override {
        if (fetched) *fetched = 0;
        if (!given || (!fetched && count != 1)) return E_POINTER;
        if (count > 0) *given = {};
        return AtBoundary([&, taking = Take(count)] {
            const auto [first, taken] = taking;
            for (ULONG i = 0; i < taken; ++i) {
                given[i] = HandOut()((*m_items)[first + i]);
                if (fetched) *fetched = i + 1;
            }
            return taken == count ? S_OK : S_FALSE;
        });
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

}  // namespace hx
