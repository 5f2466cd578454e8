#include "bench/heap.h"

#include <malloc.h>

#include <stdexcept>

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

size_t HeapInUse() {
    return mallinfo2().uordblks;
}

}  // namespace hx::bench
