// The toolkit's application object: the host's own, or one that is made here once and stays for the process.
// On the thread of the user interface.
#pragma once

#include <string>

#include "platform/ui/load_renderer.h"

namespace hx::ui {

// False, and `reason` says why in English, if there is no screen to be on.
bool StartApplication(const ScreenOptions& options, std::wstring& reason);

}  // namespace hx::ui
