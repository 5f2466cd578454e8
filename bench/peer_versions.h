// Which releases HX is compared with.
#pragma once

#include <string>

namespace hx::bench {

std::string PeerVersions();

}  // namespace hx::bench
