// The page of the measurement settings: profiles and their values, field of view and measuring speed, which
// the scanner follows at once. The child window of its control, which forwards the host's calls; on the
// thread of the user interface.
#pragma once

#include "controls/editor/BaseDynamicSettingsDlg.h"
#include "controls/widgets/CScannerPreviewCtrl.h"
#include "hxapi/IHXSettingsObjectMap.h"
#include "platform/com/safearray.h"
#include "platform/ui/dialog.h"

namespace hx {

class CMeasSettingsDlg final : public ui::Dialog,
                               public cHXApiEventsSinkSimple<CMeasSettingsDlg>,
                               public BaseDynamicSettingsDlg<CMeasSettingsDlg> {
public:
    static constexpr uint32_t kTemplate = 203;

    CMeasSettingsDlg();
    ~CMeasSettingsDlg() override;

    // The host's calls, in any order, also while there is no window. The last connection state that came
    // before there was one is followed when there is.
    void SetApi(ComPtr<IHXApi> api);
    // Keeps the map and its entry for measurement settings.
    void SetSettingsObjectMap(ComPtr<IHXSettingsObjectMap> map);
    void OnSelected();
    void OnDeselected();
    // `arguments` stays the host's; the selected profile is written into it until this is destroyed. Throws
    // an MException "CMeasSettingsDlg.Initialise:InvalidArguments", "MissingArguments" or
    // "InvalidArgumentType"; what was set before it stays.
    void Initialise(const std::wstring& driver_internal_name, const std::wstring& device_internal_name,
                    const std::wstring& function_name, SAFEARRAY** arguments);
    // And CommitOnClose, of ProfileEditor.

private:
    // What the window is told.
    bool OnInitDialog() override;
    void OnDestroy() override;
    void OnMessage(const WindowMessage& message) override;
    void OnCommand(ui::Control& control, uint32_t code) override;

    // What the editor and the session ask of the page.
    void UpdateSettingsFromUI(bool from_sliders) override;
    void EnableControls(bool enable) noexcept override;
    bool SetProfile(const ComPtr<IDynamicSettingsPreset>& preset) override;
    void ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset) override;
    void ReportSelectedPreset() override;
    void UpdateExposureText() override;
    void NoteConnectionState() override;
    ComPtr<IUnknown> TrackingObserver() override { return m_preview.Observer(); }
    void ResetPreview() override { m_preview.Reset(); }
    void FillGainList() override;
    void RefreshFrameRate() noexcept override {}
    void RefreshExposureRows() override;
    void LeaveControls() override { UpdateSettingsFromUI(false); }

    void EndSession() noexcept;

    CScannerPreviewCtrl m_preview;
    ComPtr<IHXSettingsObjectMap> m_settings_map;
    ComPtr<IUnknown> m_settings;  // its entry
    std::wstring m_function_name = L"EditDynamicSettingsPresets";
    SAFEARRAY** m_arguments = nullptr;  // the host's
};

}  // namespace hx
