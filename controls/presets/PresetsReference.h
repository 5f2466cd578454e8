// A page's share of the presets manager: counts the page in, and out when it goes. On the thread of the user
// interface.
#pragma once

#include <utility>

#include "controls/presets/MDynamicSettingsPresets.h"

namespace hx {

class PresetsReference {
public:
    PresetsReference() : m_presets(&MDynamicSettingsPresets::GetInstance()) {
        MDynamicSettingsPresets::AddPage();
    }
    PresetsReference(const PresetsReference&) = delete;
    PresetsReference& operator=(const PresetsReference&) = delete;
    ~PresetsReference() { Drop(); }

    // May be repeated; the manager must not be used afterwards.
    void Drop() {
        if (std::exchange(m_presets, nullptr) != nullptr) MDynamicSettingsPresets::RemovePage();
    }

    MDynamicSettingsPresets& operator*() const { return *m_presets; }
    MDynamicSettingsPresets* operator->() const { return m_presets; }

private:
    MDynamicSettingsPresets* m_presets;
};

}  // namespace hx
