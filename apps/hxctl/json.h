// JSON as the commands of the tool write it, its members in the order in which they were set. Whoever
// includes this does not compile the class anew: it is compiled once, in json.cpp, as doing so takes longer
// than all else in a command.
#pragma once

#include <nlohmann/json.hpp>

extern template class nlohmann::basic_json<nlohmann::ordered_map>;

namespace hxctl {

using Json = nlohmann::ordered_json;

}  // namespace hxctl
