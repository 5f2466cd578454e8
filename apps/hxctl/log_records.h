// A module's log read back from its file: the lines of its headers and its records.
#pragma once

#include <string>
#include <string_view>

#include "apps/hxctl/json.h"

namespace hxctl {

// {"file", "header": [line...], "records": [{"time", "level", "file", "line", "location", "message"}...]}.
Json ReadLogRecords(const std::string& file, std::string_view text);

}  // namespace hxctl
