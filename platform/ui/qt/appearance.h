// Colours and the font of dialogs. On the thread of the user interface, once there is an application.
#pragma once

#include <QFont>
#include <QPalette>

#include "platform/ui/renderer.h"

namespace hx::ui {

// A style and whole palettes of our own, for pictures and for whoever asks for light or dark.
void UseOwnAppearance(bool dark);

// The desktop's sans-serif in the size that so many points have on a screen at 100 %.
QFont DialogFontOf(uint32_t points);
inline constexpr uint32_t kDialogPoints = 8;

FontUnits UnitsOf(const QFont& font);
Size ExtentOf(const QFont& font, std::wstring_view text);

Colour ColourIn(const QPalette& palette, SystemColour colour);

}  // namespace hx::ui
