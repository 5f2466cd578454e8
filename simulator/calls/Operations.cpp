#include "simulator/calls/Operations.h"

#include <algorithm>
#include <iterator>

namespace hx::simulator {

const Operation* FindOperation(std::wstring_view name) {
    std::wstring_view interface_name;
    if (const size_t dot = name.find(L'.'); dot != std::wstring_view::npos) {
        interface_name = name.substr(0, dot);
        name.remove_prefix(dot + 1);
    }
    const auto* const found = std::ranges::find_if(kOperations, [&](const Operation& each) {
        return each.name == name && (interface_name.empty() || each.interface_name == interface_name);
    });
    return found != std::end(kOperations) ? found : nullptr;
}

}  // namespace hx::simulator
