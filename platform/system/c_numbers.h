// Numbers in files: read by the rules of the "C" locale, whatever the host has set for itself.
// Usable on any thread.
#pragma once

#include "platform/api.h"

namespace hx {

// strtod with '.' as decimal separator: leading blanks, hexadecimal, "inf" and "nan" are taken; overflow
// gives infinity, underflow the nearest value. `*end` (if given) points behind what was read, at `text` if
// nothing was.
HX_PLATFORM_API double ParseDoubleC(const char* text, const char** end);
// The same as strtof, rounded once.
HX_PLATFORM_API float ParseFloatC(const char* text, const char** end);

}  // namespace hx
