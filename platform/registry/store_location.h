// Where the registry stores of this machine and of this user lie; nowhere else is it said:
//     machine   /var/lib/orvel-hx/machine.registry        written by the installer or an administrator
//     user      $XDG_DATA_HOME/orvel-hx/user.registry     without that variable in ~/.local/share
// HX_REGISTRY=FOLDER puts both into that folder. Any thread.
#pragma once

#include <filesystem>

#include "platform/api.h"

namespace hx {

struct StoreLocation {
    std::filesystem::path machine;
    std::filesystem::path user;
};

// Absolute paths, from the environment as it is now. Throws std::bad_alloc only.
HX_PLATFORM_API StoreLocation LocateStores();

}  // namespace hx
