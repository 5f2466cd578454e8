// What page code asks of the screen apart from its windows: boxes, menus, the wait cursor, the clipboard. On
// the thread of the user interface; boxes and menus return when they are closed, and messages are dispatched
// meanwhile. While a script is set (script.h), it answers.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/module/dialog_template.h"
#include "platform/ui/renderer.h"

namespace hx::ui {

HX_PLATFORM_API void ShowMessageBox(Window* owner, const std::wstring& caption, const std::wstring& text,
                                    BoxIcon icon);

// The items of a template's first submenu.
HX_PLATFORM_API std::vector<MenuLine> LinesOf(const MenuTemplate& menu);
// The command chosen, 0 for none. `where` is in the window.
HX_PLATFORM_API uint32_t RunMenu(Window& owner, Point where, const std::vector<MenuLine>& lines);

// Shown as long as somebody holds one; needs no window.
HX_PLATFORM_API std::shared_ptr<void> ShowWaitCursor();
HX_PLATFORM_API void DiscardMouseMessages();
// For the operator to paste elsewhere; false if there is no renderer, or it cannot.
HX_PLATFORM_API bool CopyToClipboard(const std::wstring& text);

// The text without the marks of a mnemonic; the mnemonic, small, 0 for none.
HX_PLATFORM_API std::wstring WithoutMnemonic(std::wstring_view text);
HX_PLATFORM_API wchar_t MnemonicOf(std::wstring_view text);

}  // namespace hx::ui
