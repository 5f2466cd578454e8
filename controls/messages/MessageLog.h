// What pages, the list of profiles and the dialog that asks for names leave in the log. On any thread; never
// throws.
#pragma once

#include <string_view>

#include "core/errors/MErrorLocation.h"
#include "platform/ui/dialog_error.h"

namespace hx {

void LogText(const MErrorLocation& location, std::wstring_view text) noexcept;
// An error that goes no further: its code and parameters.
void LogDismissed(const MErrorLocation& location, const MError& error) noexcept;
// A dialog that could not be made.
void LogDialogError(const MErrorLocation& location, const ui::DialogError& failure) noexcept;

}  // namespace hx
