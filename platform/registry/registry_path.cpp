#include "platform/registry/registry_path.h"

#include <algorithm>

namespace hx {

std::vector<std::wstring_view> SplitRegistryPath(std::wstring_view path) {
    std::vector<std::wstring_view> names;
    while (!path.empty()) {
        const size_t length = std::min(path.find(L'\\'), path.size());
        if (length != 0) names.push_back(path.substr(0, length));
        path.remove_prefix(std::min(length + 1, path.size()));
    }
    return names;
}

}  // namespace hx
