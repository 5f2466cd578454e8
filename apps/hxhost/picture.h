// The picture of the window, connected, without a screen.
#pragma once

#include <string>

#include "apps/hxhost/HostDialog.h"

namespace hxhost {

// The window is created and the scanner being connected. Waits until the preview has drawn what the scanner
// sees. Empty if the file was written and the page is there; else why not, in English.
std::string SavePicture(HostDialog& dialog, const std::string& file);

}  // namespace hxhost
