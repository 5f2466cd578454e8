// Loading and saving the presets, and making new ones.
#include <algorithm>
#include <optional>

#include "controls/api/ApiOperation.h"
#include "controls/presets/MDynamicSettingsPresets.h"
#include "core/locale/MResourceLocale.h"
#include "platform/com/text_array.h"
#include "settings/profile/ProfileNames.h"

namespace hx {
namespace {

constexpr char kClass[] = "MDynamicSettingsPresets";
constexpr wchar_t kHiddenPrefix = L'@';
constexpr uint32_t kUserDefined = 7;

ComPtr<IDynamicSettingsPreset> CreatePreset(const ApiOperation& operation, int32_t line,
                                            const ComPtr<ICalibrationHandle>& handle) {
    constexpr wchar_t kCall[] = L"CreateDynamicSettingsPreset";
    ComPtr<IDynamicSettingsPreset> preset;
    operation.Call(line, kCall, handle, &ICalibrationHandle::CreateDynamicSettingsPreset, preset.put());
    if (!preset) operation.Fail(line, kCall, E_POINTER);
    return preset;
}

// What is written of the list: an array of each.
struct StoredList {
    StoredList(const std::vector<const PresetEntry*>& entries)
        : names(SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(entries.size()))),
          presets(SafeArrayCreateVector(VT_UNKNOWN, 0, static_cast<ULONG>(entries.size()))) {
        if (!names || !presets) throw std::bad_alloc();
        for (LONG i = 0; i < static_cast<LONG>(entries.size()); ++i) {
            const PresetEntry& entry = *entries[static_cast<size_t>(i)];
            if (FAILED(SafeArrayPutElement(names.get(), &i, Bstr(entry.name).get())) ||
                FAILED(SafeArrayPutElement(presets.get(), &i, entry.preset.get()))) {
                throw std::bad_alloc();
            }
        }
    }

    SafeArray names;
    SafeArray presets;
};

}  // namespace

void MDynamicSettingsPresets::Load(const IsWanted& is_wanted) {
    static MErrorLocation location(kClass, "Load");
    const ApiOperation operation(location, this);
    m_completely_loaded_owner.clear();
    m_entries.Clear();
    m_selected_name.clear();
    m_loaded_selected_name.clear();
    if (m_owner_name.empty()) return;

    const Bstr owner(m_owner_name);
    SafeArray name_array;
    SafeArray display_name_array;
    constexpr wchar_t kEnumerate[] = L"EnumerateDynamicSettingsPresets";
    operation.Call(71, kEnumerate, m_handle, &ICalibrationHandle::EnumerateDynamicSettingsPresets,
                   owner.get(), name_array.put(), display_name_array.put());
    if (!is_wanted()) return;
    const auto names = TextsOf(name_array.get());
    const auto display_names = TextsOf(display_name_array.get());
    if (!names || !display_names || names->size() != display_names->size()) {
        operation.Fail(77, kEnumerate, E_UNEXPECTED);
    }

    Bstr selected;
    operation.Call(82, L"GetSelectedDynamicSettingsPreset", m_handle,
                   &ICalibrationHandle::GetSelectedDynamicSettingsPreset, owner.get(), selected.put());
    if (!is_wanted()) return;
    m_selected_name = selected.view();
    m_loaded_selected_name = m_selected_name;

    for (size_t i = 0; i < names->size(); ++i) {
        const std::wstring& name = (*names)[i];
        if (name.starts_with(kHiddenPrefix)) continue;
        constexpr wchar_t kGet[] = L"GetDynamicSettingsPreset";
        ComPtr<IDynamicSettingsPreset> preset;
        operation.Call(93, kGet, m_handle, &ICalibrationHandle::GetDynamicSettingsPreset, owner.get(),
                       Bstr(name).get(), preset.put());
        if (!is_wanted()) return;
        if (!preset) operation.Fail(95, kGet, E_POINTER);
        m_entries.Append({name, (*display_names)[i], 0, std::move(preset)});
    }
    m_loaded = true;
    m_completely_loaded_owner = m_owner_name;
}

void MDynamicSettingsPresets::LoadOnce(const IsWanted& is_wanted) {
    if (m_loaded) return;
    Load(is_wanted);
    m_loaded = m_loaded || is_wanted();
}

bool MDynamicSettingsPresets::IsEnumerationOutcome(const MException& exception) {
    constexpr std::wstring_view kOutcomes[] = {kHXPresetsCustomRestored, kHXPresetsCustomGenerated,
                                               kHXPresetsUnknownVersion};
    return std::ranges::any_of(exception.GetChain(), [&](const auto& error) {
        return std::ranges::find(kOutcomes, error->GetCode()) != std::end(kOutcomes);
    });
}

void MDynamicSettingsPresets::Save() {
    static MErrorLocation location(kClass, "Save");
    if (m_owner_name.empty() || m_completely_loaded_owner != m_owner_name) return;

    const auto is_custom = [this](std::wstring_view name) {
        return m_custom_present && name == kCustomProfileName;
    };
    const std::wstring selected = is_custom(m_selected_name) ? FallbackName() : m_selected_name;
    std::vector<const PresetEntry*> entries;
    entries.reserve(Count());
    for (const PresetEntry& entry : m_entries.Entries()) {
        if (!is_custom(entry.name)) entries.push_back(&entry);
    }
    const StoredList list(entries);
    const Bstr selected_text = selected.empty() ? Bstr() : Bstr(selected);
    ApiOperation(location, this)
        .Call(134, L"SaveDynamicSettingsPresets", m_handle, &ICalibrationHandle::SaveDynamicSettingsPresets,
              Bstr(m_owner_name).get(), list.names.get(), list.presets.get(), selected_text.get());
}

ComPtr<IDynamicSettingsPreset> MDynamicSettingsPresets::CreateNewPreset() {
    static MErrorLocation location(kClass, "CreateNewPreset");
    return CreatePreset(ApiOperation(location, this), 141, m_handle);
}

bool MDynamicSettingsPresets::SetCustomPreset() {
    static MErrorLocation location(kClass, "SetCustomPreset");
    if (m_entries.FindExact(kCustomProfileName) != nullptr) return m_custom_present;
    ComPtr<IDynamicSettingsPreset> preset = CreatePreset(ApiOperation(location, this), 147, m_handle);
    try {
        SetPreset(kCustomProfileName, std::move(preset));
    } catch (...) {
        // Else it would pass for one that was stored, and be stored with every save from now on.
        RemovePreset(kCustomProfileName);
        throw;
    }
    SetDisplayName(kCustomProfileName, MResourceLocale::LoadStringResource(kUserDefined));
    // Not before it is stored for once: saves leave it out from now on.
    m_custom_present = true;
    return m_custom_present;
}

}  // namespace hx
