// What pages, the list of profiles and the dialog that asks for names leave in the log. On any thread; never
// throws.
#pragma once

#include <string_view>

#include "core/errors/MErrorLocation.h"

namespace hx {

void LogText(const MErrorLocation& location, std::wstring_view text) noexcept;
// An error that goes no further: its code and parameters.
void LogDismissed(const MErrorLocation& location, const MError& error) noexcept;

}  // namespace hx
