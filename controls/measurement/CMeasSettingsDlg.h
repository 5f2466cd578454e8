// The page of the measurement settings: profiles and their values, field of view and measuring speed, which
// the scanner follows at once. The child window of its control, which forwards the host's calls; on the
// thread of the user interface.
#pragma once

#include "controls/editor/BaseDynamicSettingsDlg.h"
#include "controls/measurement/FieldOfViewLayout.h"
#include "controls/measurement/MeasurementSpeed.h"
#include "controls/parts/ExposureDetection.h"
#include "controls/parts/FieldOfView.h"
#include "controls/parts/FlagBoxes.h"
#include "controls/parts/GainChooser.h"
#include "controls/parts/ScannerReadouts.h"
#include "controls/parts/ValueControls.h"
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
    void OnSize(const ui::Size& size) override;
    void OnDestroy() override;
    void OnMessage(const WindowMessage& message) override;
    void OnCommand(ui::Control& control, uint32_t code) override;
    void OnScroll(ui::TrackBar& track_bar, uint32_t code, int32_t position) override;

    // What the editor and the session ask of the page.
    void UpdateSettingsFromUI(bool from_sliders) override;
    void EnableControls(bool enable) noexcept override;
    bool SetProfile(const ComPtr<IDynamicSettingsPreset>& preset) override;
    void ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset) override;
    void ReportSelectedPreset() override;
    void UpdateExposureText() override;
    void OnPresetSelectionChanging() override { m_speed.ForgetLabels(); }
    void NoteConnectionState() override;
    ComPtr<IUnknown> TrackingObserver() override { return m_preview.Observer(); }
    void ResetPreview() override { m_preview.Reset(); }
    void FillGainList() override;
    void RefreshFrameRate() noexcept override {}  // shown with the field of view
    void RefreshExposureRows() override { m_readouts.ShowExposureRows(); }
    void LeaveControls() override;

    // What the operator does to a control.
    struct Notification;
    struct Slider;
    void OnListSelection(ui::Control& list);
    void OnEditChanged(ui::Control& edit);
    void OnExposureChanged(ui::Control& edit);
    void OnEditLeft(ui::Control& edit);
    void OnFlag(ui::Control& box);
    void OnGain(ui::Control& list);
    void OnHighIso(ui::Control& box);
    void OnDetect(ui::Control& button);
    // What they stand for was moved: bits.
    void OnScanningSlider(uint32_t moved);
    // The controls have a new value: it goes into the working preset and to the scanner. False if that
    // failed, which was told, or the page may not go on.
    bool Follow();

    void EndSession() noexcept;
    // These move the preview, which may do anything: false if the session was ended in that.
    bool SettingsToData(IDynamicSettingsPreset& preset);
    bool ReadScanning();
    bool LayOutFieldOfView();
    void FollowScanning(const Scope& scope, uint32_t moved);
    void ApplyScanning(const Scope& scope);
    void ShowRecord();
    void ShowRecordInEdits();

    CScannerPreviewCtrl m_preview;
    ValueControls m_values;
    FlagBoxes m_flags;
    GainChooser m_gains;
    FieldOfView m_field_of_view;
    FieldOfViewLayout m_layout;
    MeasurementSpeed m_speed;
    ScannerReadouts m_readouts;
    ExposureDetection m_detection;
    MGlobalScanningSettings m_scanning;  // as read last, with what the operator changed since
    bool m_follows_scanning = false;
    uint32_t m_moved_meanwhile = 0;  // while that is so
    int32_t m_field_of_view_config = -1;
    const bool m_shows_detect;
    std::atomic<bool> m_tracking = false;  // a slider is being moved
    bool m_enabled = false;                // as EnableControls was told last
    bool m_enabling = false;

    ComPtr<IHXSettingsObjectMap> m_settings_map;
    ComPtr<IUnknown> m_settings;  // its entry
    std::wstring m_function_name = L"EditDynamicSettingsPresets";
    SAFEARRAY** m_arguments = nullptr;  // the host's
};

}  // namespace hx
