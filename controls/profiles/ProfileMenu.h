// The menu of a profile in the list: what can be done with it now. On the thread of the user interface.
#pragma once

#include <vector>

#include "controls/editor/ICurrentPresetHandler.h"
#include "platform/ui/renderer.h"

namespace hx {

// What is chosen from.
struct ProfileState {
    bool user_defined = false;
    bool modified = false;
};

// In the language in use; empty if the resources have no such menu, which the log is told.
std::vector<ui::MenuLine> ProfileMenuLines(const ProfileState& state);

// Does what was chosen; nothing for 0.
void RunProfileCommand(ICurrentPresetHandler& handler, uint32_t command);

}  // namespace hx
