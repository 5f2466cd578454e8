#include "core/locale/LoadedSatellites.h"

#include <algorithm>

#include "core/locale/MResourceLocale.h"
#include "platform/system/never_destroyed.h"

namespace hx {

LoadedSatellites& LoadedSatellites::Get() {
    static NeverDestroyed<LoadedSatellites> satellites;
    return *satellites;
}

void LoadedSatellites::Remove() {
    std::vector<ModuleHandle> freed;
    ModuleHandle in_use;
    const std::lock_guard guard(m_mutex);
    if (--m_holders != 0) return;
    freed.swap(m_satellites);
    in_use = MResourceLocale::ExchangeResourceModule(nullptr);
}

std::unique_lock<std::mutex> LoadedSatellites::Lock() {
    return std::unique_lock(m_mutex);
}

void LoadedSatellites::Keep(const ModuleHandle& satellite) {
    if (std::ranges::find(m_satellites, satellite) == m_satellites.end()) m_satellites.push_back(satellite);
}

}  // namespace hx
