#include "controls/presets/MDynamicSettingsPresets.h"

#include <atomic>

#include "settings/profile/ProfileNames.h"

namespace hx {
namespace {

std::atomic<MDynamicSettingsPresets*> s_instance = nullptr;

ComPtr<IDynamicSettingsPreset> PresetOf(const PresetEntry* entry) {
    return entry != nullptr ? entry->preset : nullptr;
}

}  // namespace

MDynamicSettingsPresets& MDynamicSettingsPresets::GetInstance() {
    MDynamicSettingsPresets* present = s_instance.load();
    if (present != nullptr) return *present;
    auto made = std::make_unique<MDynamicSettingsPresets>();
    // Whoever comes second takes what the first one made.
    return s_instance.compare_exchange_strong(present, made.get()) ? *made.release() : *present;
}

void MDynamicSettingsPresets::AddPage() {
    ++GetInstance().m_page_count;
}

void MDynamicSettingsPresets::RemovePage() {
    MDynamicSettingsPresets* const present = s_instance.load();
    if (present != nullptr && --present->m_page_count < 1) delete s_instance.exchange(nullptr);
}

void MDynamicSettingsPresets::SetPreset(std::wstring_view name, ComPtr<IDynamicSettingsPreset> preset) {
    if (!m_entries.SetPreset(name, preset)) {
        m_entries.Append({std::wstring(name), std::wstring(name), 0, std::move(preset)});
    }
    Save();
}

void MDynamicSettingsPresets::RemoveCustomPreset() {
    if (m_custom_present) DiscardCustomPreset();
}

void MDynamicSettingsPresets::DiscardCustomPreset() {
    RemovePreset(kCustomProfileName);
    if (m_selected_name == kCustomProfileName) m_selected_name = FallbackName();
    m_custom_present = false;
}

ComPtr<IDynamicSettingsPreset> MDynamicSettingsPresets::FindPreset(std::wstring_view name) const {
    return PresetOf(m_entries.FindWithoutCase(name));
}

ComPtr<IDynamicSettingsPreset> MDynamicSettingsPresets::FindPresetExactly(std::wstring_view name) const {
    return PresetOf(m_entries.FindExact(name));
}

std::wstring MDynamicSettingsPresets::DisplayName(std::wstring_view name) const {
    const PresetEntry* entry = m_entries.FindExact(name);
    if (entry == nullptr) entry = m_entries.FindWithoutCase(name);
    return entry != nullptr ? entry->display_name : std::wstring();
}

bool MDynamicSettingsPresets::IsReserved(std::wstring_view name) const {
    return name.starts_with(L'$') && m_entries.FindExact(name) != nullptr;
}

std::wstring MDynamicSettingsPresets::FallbackName() const {
    return m_entries.FindExact(m_loaded_selected_name) != nullptr ? m_loaded_selected_name
                                                                  : kDefaultProfileName;
}

void MDynamicSettingsPresets::SetNames(std::wstring scanner_name, std::wstring owner_name) {
    m_scanner_name = std::move(scanner_name);
    m_owner_name = std::move(owner_name);
}

bool MDynamicSettingsPresets::IsDeviceActive() const {
    return !m_owner_name.empty() && m_scanner_name == m_active_scanner_name &&
           m_owner_name == m_connected_owner_name;
}

}  // namespace hx
