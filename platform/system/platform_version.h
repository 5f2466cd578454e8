// Which version of the platform library this process runs with. Any thread.
#pragma once

#include <string>

#include "platform/api.h"

namespace hx {

// "4.0.0". Throws std::bad_alloc.
HX_PLATFORM_API std::wstring PlatformVersion();

}  // namespace hx
