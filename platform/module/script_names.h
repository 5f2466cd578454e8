// The numbers that resource scripts call by the system's names: styles, buttons, what a version resource
// holds. For the parser of this folder.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace hx {

// Nothing for a name that the system does not have. Case matters.
std::optional<int64_t> SystemNumber(std::wstring_view name);

}  // namespace hx
