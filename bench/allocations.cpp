#include "bench/allocations.h"

#include <cstdlib>
#include <new>

namespace {

thread_local size_t t_allocations = 0;

}  // namespace

// Of the whole program.
void* operator new(size_t size) {
    ++t_allocations;
    if (void* const block = std::malloc(size != 0 ? size : 1)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, size_t) noexcept {
    std::free(block);
}

namespace hx::bench {

size_t Allocations() {
    return t_allocations;
}

}  // namespace hx::bench
