// The number under which the operating system, and so every debugger and process list, knows a thread.
#pragma once

#include <cstdint>

#include "platform/api.h"

namespace hx {

// Of the calling thread; asked once per thread. Numbers of ended threads are given again.
HX_PLATFORM_API uint32_t ThisThreadId();

}  // namespace hx
