// Counts how often memory is asked for. A program that links this has operators new and delete of its own;
// for speed comparisons and for tests of what must do without memory.
#pragma once

#include <cstddef>

namespace hx::bench {

// How often this thread has asked for memory with new, since it began.
size_t Allocations();

}  // namespace hx::bench
