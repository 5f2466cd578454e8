// Arrays of texts as they cross interfaces: one dimension of VT_BSTR. Any thread; both throw std::bad_alloc.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/com/safearray.h"

namespace hx {

// None for an array of any other form; null is an array without elements.
HX_PLATFORM_API std::optional<std::vector<std::wstring>> TextsOf(SAFEARRAY* array);

// A new array, never null; its indices begin at 0.
HX_PLATFORM_API SafeArray TextArray(const std::vector<std::wstring>& texts);

}  // namespace hx
