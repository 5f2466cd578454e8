// A module's log read back from its file: the lines of its headers and its records.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace hosting {

// {"file", "header": [line...], "records": [{"time", "level", "file", "line", "location", "message"}...]}.
nlohmann::ordered_json ReadLogRecords(const std::string& file, std::string_view text);

}  // namespace hosting
