#include "apps/hxhost/PendingFaults.h"

#include <algorithm>
#include <utility>

namespace hxhost {

void PendingFaults::Add(std::string operation, HRESULT result, int32_t times) {
    m_faults.push_back({std::move(operation), result, times});
}

bool PendingFaults::UseUp(const std::string& operation, HRESULT result) {
    const auto used = std::ranges::find_if(m_faults, [&](const Pending& each) {
        return each.operation == operation && (each.result == S_OK || each.result == result);
    });
    if (used == m_faults.end()) return false;
    if (--used->times == 0) m_faults.erase(used);
    return m_faults.empty();
}

}  // namespace hxhost
