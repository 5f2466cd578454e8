// Arrays of texts as the scanner API gives and takes them: one dimension of VT_BSTR. Any thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/com/safearray.h"

namespace hx {

// None for an array of any other form; null is an array without elements.
std::optional<std::vector<std::wstring>> TextsOf(SAFEARRAY* array);

}  // namespace hx
