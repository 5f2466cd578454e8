// The system's numbers of keys and the toolkit's, as far as dialogs here use them.
#pragma once

#include <QKeyEvent>
#include <cstdint>

namespace hx::ui {

// 0 if it is none of them; with Alt, Control or Meta no key is.
uint32_t SystemKeyOf(const QKeyEvent& event);
// Qt::Key_unknown if it is none of them.
Qt::Key ToolkitKeyOf(uint32_t key);

// Whether Shift is held, which turns Tab round.
inline bool IsBackwards(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backtab || (event.modifiers() & Qt::ShiftModifier);
}
// Whether it is that for menus: the key of that name, or Shift and F10.
bool IsMenuKey(const QKeyEvent& event);
// The letter that Alt is held for, 0 for none.
wchar_t MnemonicIn(const QKeyEvent& event);

}  // namespace hx::ui
