// From dialog units to pixels: a unit is a quarter of the average letter's width, and an eighth of the font's
// height. Inside platform/ui and for its tests.
#pragma once

#include "platform/api.h"
#include "platform/module/dialog_template.h"
#include "platform/ui/geometry.h"

namespace hx::ui {

// Each of place and size is rounded by itself, halves away from zero. Numbers that no screen has are cut.
HX_PLATFORM_API Rectangle PixelsOf(const DialogRectangle& units, const Size& letter);

}  // namespace hx::ui
