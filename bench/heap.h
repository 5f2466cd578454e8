// The process's heap: kept warm, and asked how much of it is in use.
#pragma once

#include <cstddef>

namespace hx::bench {

// From now on memory that is freed stays in the heap, whatever its size. Otherwise the contenders would be
// compared by how often they make the kernel clear new pages.
void KeepFreedMemory();

// Bytes.
size_t HeapInUse();

}  // namespace hx::bench
