#include "platform/system/environment.h"

#include <stdlib.h>

namespace hx {

std::optional<std::string> EnvironmentValue(const char* name) {
    const char* const value = getenv(name);
    if (value == nullptr) return std::nullopt;
    return value;
}

void SetEnvironmentValue(const char* name, const std::string& value) {
    setenv(name, value.c_str(), 1);
}

}  // namespace hx
