// What a person is told whose number is none that an edit takes. Called by dialogs, on the thread of the user
// interface.
#pragma once

#include <string>

#include "platform/module/module.h"

namespace hx::ui {

// The module's string 61714, as frameworks number it, with the bounds in place of "%1" and "%2"; English
// where it has none.
HX_PLATFORM_API std::wstring IntegerRangeText(const ResourceModule& module, int32_t minimum, int32_t maximum);

}  // namespace hx::ui
