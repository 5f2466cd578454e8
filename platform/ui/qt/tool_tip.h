// The text of a control's tool tip as the toolkit is to show it. Called by views, on the thread of the user
// interface.
#pragma once

#include <QString>
#include <string_view>

namespace hx::ui {

// In lines of some 60 letters, as the toolkit does not break them; what looks like markup is shown as it is.
QString ToolTipText(std::wstring_view text);

}  // namespace hx::ui
