// Whether a text is a JSON array, so that it can stand in the log as it is. Any thread.
#pragma once

#include <string_view>

namespace hx::simulator {

// No deeper than 64 levels.
bool IsJsonArray(std::wstring_view text);

}  // namespace hx::simulator
