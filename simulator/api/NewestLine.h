// What a fault cuts that hits an object of no particular simulator: the newest one's cable. Any thread.
#pragma once

#include <memory>

#include "simulator/calls/Gate.h"

namespace hx::simulator {

// Throws std::bad_alloc.
std::shared_ptr<Line> MakeNewestLine();

}  // namespace hx::simulator
