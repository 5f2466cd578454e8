// Implements: QueryInterface and counting for a component object, from one list of its interfaces:
//     class Thing final : public hx::Implements<Thing, hx::FreeThreaded, IThing, ISupportErrorInfo> { ... };
//     hx::ComPtr<Thing> thing = hx::Make<Thing>(arguments);
// The first interface is the object's identity. A base of a listed interface is answered if it is listed too,
// as IDispatch beside an interface that derives from it. FreeThreaded objects may be held on any thread,
// SingleThreaded ones on the thread that made them.
#pragma once

#include <atomic>
#include <type_traits>
#include <utility>

#include "platform/com/comptr.h"

namespace hx {

class FreeThreaded {
public:
    uint32_t Add() noexcept { return m_count.fetch_add(1, std::memory_order_relaxed) + 1; }
    // Whoever drops the last reference sees all that other threads did to the object before they dropped
    // theirs.
    uint32_t Remove() noexcept { return m_count.fetch_sub(1, std::memory_order_acq_rel) - 1; }
    // False if there is none left.
    bool AddToSome() noexcept {
        uint32_t count = m_count.load(std::memory_order_relaxed);
        while (count != 0) {
            if (m_count.compare_exchange_weak(count, count + 1, std::memory_order_acq_rel)) return true;
        }
        return false;
    }

private:
    std::atomic<uint32_t> m_count{1};
};

class SingleThreaded {
public:
    uint32_t Add() noexcept { return ++m_count; }
    uint32_t Remove() noexcept { return --m_count; }

private:
    uint32_t m_count = 1;
};

namespace detail {

// True if I comes along with another, derived interface of the list, so that it must not become a base twice.
template <class I, class... All>
inline constexpr bool comes_along = ((std::is_base_of_v<I, All> && !std::is_same_v<I, All>) || ...);

template <class I>
struct NoBase {};

template <class I, class... All>
using BaseFor = std::conditional_t<comes_along<I, All...>, NoBase<I>, I>;

template <class... All>
struct InterfaceList {
    // The first real base that is or derives from I: the way from the object to its I.
    template <class I, class... Rest>
    struct Carrier {
        using type = void;
    };
    template <class I, class Next, class... Rest>
    struct Carrier<I, Next, Rest...> {
        using type = std::conditional_t<std::is_base_of_v<I, Next> && !comes_along<Next, All...>, Next,
                                        typename Carrier<I, Rest...>::type>;
    };
    template <class I>
    using CarrierOf = typename Carrier<I, All...>::type;
};

}  // namespace detail

template <class Self, class Threading, class First, class... Others>
class Implements : public detail::BaseFor<First, First, Others...>,
                   public detail::BaseFor<Others, First, Others...>... {
public:
    Implements(const Implements&) = delete;
    Implements& operator=(const Implements&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = Find(iid);
        if (!*object) return E_NOINTERFACE;
        m_references.Add();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return m_references.Add(); }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = m_references.Remove();
        if (left == 0) delete static_cast<Self*>(this);
        return left;
    }

protected:
    // A new object has one reference, its creator's: its constructor may hand it around without losing it.
    Implements() = default;
    virtual ~Implements() = default;

    // A reference for somebody who knows the object without one, and sees to it that it is not destroyed
    // meanwhile; empty if the last one is gone and the object about to follow it. FreeThreaded objects only.
    ComPtr<Self> ReferenceToLiving() {
        ComPtr<Self> living;
        if (m_references.AddToSome()) living.attach(static_cast<Self*>(this));
        return living;
    }

private:
    template <class I>
    I* To() {
        using Carrier = typename detail::InterfaceList<First, Others...>::template CarrierOf<I>;
        return static_cast<I*>(static_cast<Carrier*>(this));
    }
    void* Find(REFIID iid) {
        if (iid == uuid_of<IUnknown>()) return static_cast<IUnknown*>(To<First>());
        void* found = nullptr;
        (Try<First>(iid, found) || ... || Try<Others>(iid, found));
        return found;
    }
    template <class I>
    bool Try(REFIID iid, void*& found) {
        if (!(iid == uuid_of<I>())) return false;
        found = To<I>();
        return true;
    }

    Threading m_references;
};

// A new object, held by the only reference. What T's constructor throws, and std::bad_alloc, passes.
template <class T, class... Arguments>
ComPtr<T> Make(Arguments&&... arguments) {
    ComPtr<T> object;
    object.attach(new T(std::forward<Arguments>(arguments)...));
    return object;
}

}  // namespace hx
