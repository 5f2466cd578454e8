#include "bench/heap.h"

#include <malloc.h>

#include <cstdlib>
#include <new>
#include <stdexcept>

namespace {

thread_local size_t t_allocations = 0;

}  // namespace

// Of the whole program, so for all contenders.
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

void KeepFreedMemory() {
    // No block is large enough to be mapped on its own, and no free space at the end large enough to be given
    // back.
    constexpr int kNone = 0;
    constexpr int kNever = -1;
    if (mallopt(M_MMAP_MAX, kNone) != 1 || mallopt(M_TRIM_THRESHOLD, kNever) != 1) {
        throw std::runtime_error("the heap cannot be kept warm");
    }
}

size_t Allocations() {
    return t_allocations;
}

size_t HeapInUse() {
    return mallinfo2().uordblks;
}

}  // namespace hx::bench
