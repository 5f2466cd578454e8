// The presets (profiles) of the scanner that the pages configure: their names and objects, which one is
// selected, and the custom preset, which is not stored. It loads them through the calibration handle, and
// writes the whole list back. It also knows the scanner API, and which scanner is configured and which is
// connected.
//
// One for all pages of the program, which hold it by a PresetsReference. On the thread of the user interface.
// Failed calls throw an MException "MDynamicSettingsPresets.Operation:Call".
#pragma once

#include <functional>

#include "controls/presets/PresetList.h"
#include "core/errors/MException.h"
#include "hxapi/ICalibrationHandle.h"
#include "hxapi/IHXApi.h"

namespace hx {

class ApiOperation;

class MDynamicSettingsPresets {
public:
    MDynamicSettingsPresets() = default;
    MDynamicSettingsPresets(const MDynamicSettingsPresets&) = delete;
    MDynamicSettingsPresets& operator=(const MDynamicSettingsPresets&) = delete;
    virtual ~MDynamicSettingsPresets() = default;

    // The one of all pages, made at the first use; it goes with the last page that was counted in.
    static MDynamicSettingsPresets& GetInstance();
    static void AddPage();
    static void RemovePage();

    // The list is read from the scanner API. A failure leaves the entries read so far. Names that begin with
    // "@" are not for operators; without an owner there are none at all. Calls may dispatch messages, after
    // which it ends where it is if it is not wanted any more.
    using IsWanted = std::function<bool()>;
    void Load(const IsWanted& is_wanted = [] { return true; });
    // Unless it was loaded already, also as an empty list.
    void LoadOnce(const IsWanted& is_wanted = [] { return true; });
    // Whether the failure of a load tells that the API changed the owner's presets: then the operator is to
    // be told, and a second load finds them.
    static bool IsEnumerationOutcome(const MException& exception);
    // Writes the list back, all or nothing. Does nothing unless all presets of the present owner were loaded:
    // neither a part of a list nor another owner's may replace what is stored.
    void Save();

    ComPtr<IDynamicSettingsPreset> CreateNewPreset();
    // Sees to it that there is a custom preset; tells whether it was added here. The save that comes with it
    // is the only one that stores it; if it fails, there is none.
    bool SetCustomPreset();
    // If it was added here.
    void RemoveCustomPreset();
    // Also one that was stored.
    void DiscardCustomPreset();

    // Replaces that of the entry of this exact name, or appends one; then saves.
    void SetPreset(std::wstring_view name, ComPtr<IDynamicSettingsPreset> preset);
    void RemovePreset(std::wstring_view name) { m_entries.Remove(name); }
    // The new name is also the display name.
    void Rename(std::wstring_view name, std::wstring_view new_name) { m_entries.Rename(name, new_name); }
    void SetDisplayName(std::wstring_view name, std::wstring_view display_name) {
        m_entries.SetDisplayName(name, display_name);
    }

    // By name without regard to case, and exactly; empty if there is none.
    ComPtr<IDynamicSettingsPreset> FindPreset(std::wstring_view name) const;
    ComPtr<IDynamicSettingsPreset> FindPresetExactly(std::wstring_view name) const;
    // Without regard to case.
    bool Contains(std::wstring_view name) const { return m_entries.FindWithoutCase(name) != nullptr; }
    // Without regard to case, unless there is one of exactly that name; "" for an unknown one.
    std::wstring DisplayName(std::wstring_view name) const;
    // That of a preset that is not the operator's own.
    bool IsReserved(std::wstring_view name) const;
    size_t Count() const { return m_entries.Entries().size(); }
    const PresetEntry& At(size_t index) const { return m_entries.Entries().at(index); }

    const std::wstring& SelectedName() const { return m_selected_name; }
    void SetSelectedName(std::wstring name) { m_selected_name = std::move(name); }
    // The selection as it was loaded, if it is still there; else the default preset.
    std::wstring FallbackName() const;

    void SetApi(ComPtr<IHXApi> api) { m_api = std::move(api); }
    void SetHandle(ComPtr<ICalibrationHandle> handle) { m_handle = std::move(handle); }
    const ComPtr<ICalibrationHandle>& Handle() const { return m_handle; }
    // A new handle for the configured scanner. If one is connected, the names of what is connected are asked
    // for before; a configuration without names takes them.
    ComPtr<ICalibrationHandle> CreateCalibrationHandle();
    // Asks for the connected device unless its name is known; true if it is the configured one.
    bool UpdateActiveDeviceInternalName();
    // Whether the configured scanner is the one that the API works with.
    bool IsDeviceActive() const;

    void SetNames(std::wstring scanner_name, std::wstring owner_name);
    const std::wstring& ScannerName() const { return m_scanner_name; }
    const std::wstring& OwnerName() const { return m_owner_name; }
    const std::wstring& ActiveScannerName() const { return m_active_scanner_name; }
    const std::wstring& ConnectedOwnerName() const { return m_connected_owner_name; }

private:
    int32_t ConnectionState(const ApiOperation& operation, int32_t line) const;

    ComPtr<IHXApi> m_api;
    ComPtr<ICalibrationHandle> m_handle;  // for all calls about presets
    PresetList m_entries;
    std::wstring m_selected_name;
    std::wstring m_loaded_selected_name;
    bool m_loaded = false;
    int32_t m_page_count = 0;
    std::wstring m_scanner_name;          // the internal name of the configured driver
    std::wstring m_owner_name;            // that of the configured device, under which the API keeps presets
    std::wstring m_active_scanner_name;   // of the driver that the API works with
    std::wstring m_connected_owner_name;  // of the device that is attached to it
    bool m_custom_present = false;
    std::wstring m_completely_loaded_owner;  // "" for none
};

}  // namespace hx
