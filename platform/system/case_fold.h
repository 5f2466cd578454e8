// The one rule by which names are equal without regard to case, for the whole program: Unicode's simple case
// folding, one character to one, in no language. Any thread.
#pragma once

#include <string>
#include <string_view>

#include "platform/api.h"

namespace hx {

HX_PLATFORM_API wchar_t FoldCase(wchar_t character);
// Throws std::bad_alloc.
HX_PLATFORM_API std::wstring FoldCase(std::wstring_view text);

HX_PLATFORM_API bool EqualsWithoutCase(std::wstring_view a, std::wstring_view b);
// Negative, 0 or positive, as `a` comes before, with or behind `b`.
HX_PLATFORM_API int CompareWithoutCase(std::wstring_view a, std::wstring_view b);

}  // namespace hx
