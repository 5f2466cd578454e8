// The slot of a virtual method in its vtable, for tests of interfaces that code compiled elsewhere calls.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// A pointer to a virtual member holds the byte offset of its slot; the lowest bit only says that it is
// virtual.
template <class Method>
inline size_t SlotOf(Method method) {
    static_assert(sizeof(method) >= sizeof(uintptr_t));
    uintptr_t offset = 0;
    std::memcpy(&offset, &method, sizeof(offset));
    return (offset & ~uintptr_t{1}) / sizeof(void*);
}
