// The command line of hxhost.
#pragma once

#include <optional>
#include <string>

#include "platform/ui/geometry.h"

namespace hxhost {

struct HostOptions {
    std::string locale = "en-US";
    bool dark = false;
    double scale = 0;  // 0: the desktop's
    std::string model;
    std::string picture;  // a PNG file; empty: none
    std::optional<hx::ui::Size> size;
};

// Nothing if the program ends here, with `exit`: 0 after --help, 2 for wrong arguments. Both were told.
std::optional<HostOptions> ReadOptions(int argc, char** argv, int& exit);

}  // namespace hxhost
