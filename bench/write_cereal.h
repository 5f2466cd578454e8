// Records through cereal's XML archive.
#pragma once

#include <string>

#include "bench/records.h"

namespace hx::bench {

std::string WriteCereal(const Document<std::string>& document);

}  // namespace hx::bench
