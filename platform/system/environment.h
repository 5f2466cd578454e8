// The process's environment. Reading is safe on any thread, as long as nobody sets a value meanwhile.
#pragma once

#include <optional>
#include <string>

#include "platform/api.h"

namespace hx {

// Nothing if there is no such variable. Throws std::bad_alloc.
HX_PLATFORM_API std::optional<std::string> EnvironmentValue(const char* name);

// For this process and those that it starts. By programs, before they have threads.
HX_PLATFORM_API void SetEnvironmentValue(const char* name, const std::string& value);

}  // namespace hx
