// Waiting for a fixed time. Code that has to goes through here, so that a test can count the waits and need
// not wait. Any thread.
#pragma once

#include <cstdint>

#include "platform/api.h"

namespace hx {

HX_PLATFORM_API void SleepMilliseconds(uint32_t milliseconds);

// Called instead of waiting from now on, on any thread; null brings waiting back. Gives the one before, null
// likewise.
using Sleeper = void (*)(uint32_t milliseconds);
HX_PLATFORM_API Sleeper SetSleeper(Sleeper sleeper);

}  // namespace hx
