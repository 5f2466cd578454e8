// Message boxes and menus, which return when they are closed. On the thread of the user interface.
#pragma once

#include <QString>
#include <vector>

#include "platform/ui/renderer.h"

class QWidget;

namespace hx::ui {

void RunMessageBox(QWidget* owner, const QString& caption, const QString& text, BoxIcon icon);
uint32_t RunMenuOf(QWidget& owner, Point where, const std::vector<MenuLine>& lines);

}  // namespace hx::ui
