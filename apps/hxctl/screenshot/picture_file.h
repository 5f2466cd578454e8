// The picture of a window as a file. Throws a FailedCall if it cannot be written.
#pragma once

#include <string>

#include "platform/ui/window.h"

namespace hxctl {

void SavePicture(hx::ui::Window& window, const std::string& file);

}  // namespace hxctl
