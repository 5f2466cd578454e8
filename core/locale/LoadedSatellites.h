// The satellites that localisation objects hold, for the whole program: while one object holds any, none that
// was loaded goes away, since texts and dialogs of each may still be in use. Any thread.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <vector>

#include "platform/module/module.h"

namespace hx {

class LoadedSatellites {
public:
    static LoadedSatellites& Get();

    // One more object holds a satellite.
    void Add() { ++m_holders; }
    // One less. The last one frees them all, and the program's own resources are then in use.
    void Remove();
    int32_t Holders() const { return m_holders; }

    // Held while a satellite is kept and put into use: two objects that do so at once would each take the
    // other's for what was in use before. Not to be held while Remove is called.
    std::unique_lock<std::mutex> Lock();
    void Keep(const ModuleHandle& satellite);

private:
    std::atomic<int32_t> m_holders = 0;
    std::mutex m_mutex;
    std::vector<ModuleHandle> m_satellites;
};

}  // namespace hx
