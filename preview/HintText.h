// A band with a warning: a sign, and a text of a few lines. On the thread of the user interface.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/painter.h"

namespace hx::preview {

// The text as it stands in a band of that width: parted at blanks, or between characters where a word is too
// long or has none; the last of kMostHintLines ends with an ellipsis if there is more.
std::vector<std::wstring> WarningLines(const ui::IPainter& painter, std::wstring_view text,
                                       int32_t band_width);

void PaintWarning(ui::IPainter& painter, const ui::Rectangle& band, std::wstring_view text,
                  ui::Colour background, ui::Colour colour);

}  // namespace hx::preview
