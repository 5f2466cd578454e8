// The parts of a key's path. For the stores of this folder.
#pragma once

#include <string_view>
#include <vector>

namespace hx {

// The key names of a path, outermost first; empty ones, as of a doubled "\", are left out.
std::vector<std::wstring_view> SplitRegistryPath(std::wstring_view path);

}  // namespace hx
