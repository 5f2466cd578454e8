// The picture of the window, connected, without a screen.
#pragma once

#include <string>

#include "apps/hxhost/HostDialog.h"
#include "apps/hxhost/host_options.h"

namespace hxhost {

// Creates the window, the scanner being connected, waits until the preview has drawn what the scanner sees,
// and destroys it. Boxes wait for nobody. Empty if the file was written and shows all that; else why not, in
// English. `is_too_small`: the size asked for is below the smallest, and nothing was made.
std::string SavePicture(HostDialog& dialog, const HostTexts& texts, const HostOptions& options,
                        bool& is_too_small);

}  // namespace hxhost
