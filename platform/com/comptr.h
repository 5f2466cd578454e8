// ComPtr: owns one reference to a component object and gives it back when it goes.
// The only way in which code outside this folder holds an interface pointer.
// As safe on several threads as a plain pointer: the object may be shared, one ComPtr may not.
#pragma once

#include <concepts>
#include <cstddef>
#include <utility>

#include "platform/com/unknown.h"

namespace hx {

template <class T>
class ComPtr {
public:
    constexpr ComPtr() noexcept = default;
    constexpr ComPtr(std::nullptr_t) noexcept {}

    // Takes a reference of its own; the caller keeps its one.
    explicit ComPtr(T* object) noexcept : m_object(object) {
        if (m_object) m_object->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.m_object) {}
    ComPtr(ComPtr&& other) noexcept : m_object(other.detach()) {}

    template <class U>
    requires std::convertible_to<U*, T*> ComPtr(const ComPtr<U>& other)
    noexcept : ComPtr(static_cast<T*>(other.get())) {}
    template <class U>
    requires std::convertible_to<U*, T*> ComPtr(ComPtr<U>&& other)
    noexcept : m_object(other.detach()) {}

    ~ComPtr() { reset(); }

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    // Same pointer; two interfaces of one object differ, so compare as<IUnknown>() for identity.
    friend bool operator==(const ComPtr& a, const ComPtr& b) noexcept { return a.m_object == b.m_object; }
    friend bool operator==(const ComPtr& a, const T* b) noexcept { return a.m_object == b; }

    // Gives the reference back. The pointer is empty before the object hears of it, so it may call in again.
    void reset() noexcept {
        if (T* object = std::exchange(m_object, nullptr)) object->Release();
    }

    // Takes over the caller's reference.
    void attach(T* object) noexcept {
        if (T* old = std::exchange(m_object, object)) old->Release();
    }

    // Hands the reference to the caller and is empty after.
    [[nodiscard]] T* detach() noexcept { return std::exchange(m_object, nullptr); }

    // Gives `*out` a reference of its own, or null if this is empty. E_POINTER for a null `out`.
    HRESULT copy_to(T** out) const noexcept {
        if (!out) return E_POINTER;
        *out = ComPtr(*this).detach();
        return S_OK;
    }

    // For out-parameters: releases what it held, then lets the callee attach.
    T** put() noexcept {
        reset();
        return &m_object;
    }
    void** put_void() noexcept { return reinterpret_cast<void**>(put()); }

    // Asks the object for another interface: empty if it has none (or this is empty).
    template <class U>
    ComPtr<U> as() const noexcept {
        ComPtr<U> other;
        void* found = nullptr;
        if (m_object && SUCCEEDED(m_object->QueryInterface(uuid_of<U>(), &found))) {
            other.attach(static_cast<U*>(found));
        }
        return other;
    }

    // The same as a result code. `*out` is null on failure; E_POINTER if this is empty or `out` is null.
    HRESULT query_to(REFIID iid, void** out) const noexcept {
        if (!out) return E_POINTER;
        *out = nullptr;
        return m_object ? m_object->QueryInterface(iid, out) : E_POINTER;
    }

private:
    T* m_object = nullptr;
};

}  // namespace hx
