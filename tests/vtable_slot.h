// The slot of a virtual method in its vtable, for tests of interfaces that code compiled elsewhere calls.
#pragma once

#include <gtest/gtest.h>

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

// The methods stand in the table in this order, the first of them in slot `first`.
template <class... Methods>
void ExpectSlots(const char* interface, size_t first, Methods... methods) {
    for (const size_t slot : {SlotOf(methods)...}) EXPECT_EQ(slot, first++) << interface;
}
