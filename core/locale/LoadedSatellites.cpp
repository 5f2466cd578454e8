#include "core/locale/LoadedSatellites.h"

#include <algorithm>

#include "core/locale/MResourceLocale.h"

namespace hx {

LoadedSatellites& LoadedSatellites::Get() {
    static LoadedSatellites satellites;
    return satellites;
}

void LoadedSatellites::Remove() {
    if (--m_holders != 0) return;
    std::vector<ModuleHandle> freed;
    {
        const std::lock_guard guard(m_mutex);
        // Another object may have come meanwhile.
        if (m_holders == 0) freed.swap(m_satellites);
    }
    const ModuleHandle in_use = MResourceLocale::ResourceModule();
    if (std::ranges::find(freed, in_use) != freed.end()) MResourceLocale::ExchangeResourceModule(nullptr);
}

void LoadedSatellites::Keep(const ModuleHandle& satellite) {
    const std::lock_guard guard(m_mutex);
    if (std::ranges::find(m_satellites, satellite) == m_satellites.end()) m_satellites.push_back(satellite);
}

}  // namespace hx
