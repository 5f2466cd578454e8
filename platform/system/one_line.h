// Texts of others, made fit for a place that has one line: a value on a page, a row of a report. Both have it
// from here, so that what is seen in one can be found in the other. Any thread.
#pragma once

#include <string>
#include <string_view>

#include "platform/api.h"

namespace hx {

// A space for each run of blanks, line ends and control characters of any script, none at the ends.
// Characters that are not seen but steer how others are written, as those of direction, are left out. Throws
// std::bad_alloc.
HX_PLATFORM_API std::wstring OneLine(std::wstring_view text);

}  // namespace hx
