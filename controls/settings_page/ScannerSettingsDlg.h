// The dialog that the pages of measurement settings share: profiles and their values, which the scanner
// follows at once, the field of view, detection, and the calls of the host. A page derives from it with a row
// of its own, and adds what it alone has. The child window of the page's control, which forwards the host's
// calls; on the thread of the user interface.
#pragma once

#include "controls/editor/BaseDynamicSettingsDlg.h"
#include "controls/parts/ExposureDetection.h"
#include "controls/parts/FieldOfView.h"
#include "controls/parts/FlagBoxes.h"
#include "controls/parts/GainChooser.h"
#include "controls/parts/ScannerReadouts.h"
#include "controls/parts/ValueControls.h"
#include "controls/settings_page/SettingsPageKind.h"
#include "controls/widgets/CScannerPreviewCtrl.h"
#include "hxapi/IHXSettingsObjectMap.h"
#include "platform/com/safearray.h"
#include "platform/ui/dialog.h"

namespace hx {

class ScannerSettingsDlg : public ui::Dialog,
                           public cHXApiEventsSinkSimple<ScannerSettingsDlg>,
                           public BaseDynamicSettingsDlg<ScannerSettingsDlg> {
public:
    ~ScannerSettingsDlg() override;

    // The host's calls, in any order, also while there is no window. The last connection state that came
    // before there was one is followed when there is.
    void SetApi(ComPtr<IHXApi> api);
    // Keeps the map and its entry for measurement settings.
    void SetSettingsObjectMap(ComPtr<IHXSettingsObjectMap> map);
    void OnSelected();
    void OnDeselected();
    // `arguments` stays the host's; the selected profile is written into it until this is destroyed. Throws
    // an MException "PageClass.Initialise:InvalidArguments", "MissingArguments" or "InvalidArgumentType";
    // what was set before it stays.
    void Initialise(const std::wstring& driver_internal_name, const std::wstring& device_internal_name,
                    const std::wstring& function_name, SAFEARRAY** arguments);
    // A host that wants to close calls CommitOnClose, which ProfileEditor has.

protected:
    // The row outlives the page.
    explicit ScannerSettingsDlg(const SettingsPageKind& kind);
    // For the destructor of the page: what the window does on its way still reaches it.
    void End() noexcept;

    // What a page has of its own.
    // The controls are there; no profile is shown yet.
    virtual void OnControlsCreated() {}
    // The dialog has another size. May move components, which may do anything.
    virtual void OnLayOut() {}
    // The part of the state that is of the page's own controls.
    virtual void Describe(EnableState&) const {}
    // The record in the page's own controls, and back.
    virtual void ShowOwn() {}
    virtual void TakeOwn() {}
    // The edits into the record, because one was left (its id) or a box was clicked (0). May dispatch
    // messages: false if the page may not go on.
    virtual bool ExchangeEdits(uint32_t left_edit);
    // The scanner's own settings that the preset does not have, into the record and the controls. These may
    // move the preview: false if the session was ended in that. Throws.
    virtual bool ReadScanning() = 0;
    // What of them a slider stands for, as bits beyond kFieldOfView; and bits of which something was moved:
    // takes what the controls show of it, then ApplyScanning. Throws.
    virtual uint32_t ScanningOf(uint32_t /*slider*/) const { return 0; }
    virtual void FollowScanning(const Scope& scope, uint32_t moved) = 0;
    virtual void ShowScanning() { m_field_of_view.ShowIn(m_scanning); }
    // The page is left and no slider is held.
    void LeaveControls() override = 0;

    // Window. A page that overrides these calls them for what is not its own.
    bool OnInitDialog() override;
    void OnSize(const ui::Size& size) override;
    void OnDestroy() override;
    void OnMessage(const WindowMessage& message) override;
    void OnCommand(ui::Control& control, uint32_t code) override;
    void OnScroll(ui::TrackBar& track_bar, uint32_t code, int32_t position) override;

    // Editor and session.
    void UpdateSettingsFromUI(bool from_sliders) override;
    void EnableControls(bool enable) noexcept override;
    bool SetProfile(const ComPtr<IDynamicSettingsPreset>& preset) override;
    void ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset) override;
    void ReportSelectedPreset() override;
    void UpdateExposureText() override;
    ComPtr<IUnknown> TrackingObserver() override { return m_preview.Observer(); }
    void ResetPreview() override { m_preview.Reset(); }
    void FillGainList() override;
    void RefreshExposureRows() override { m_readouts.ShowExposureRows(); }

    static constexpr uint32_t kFieldOfView = 1;
    // Something that the scanning settings stand for was moved. Unless they are just being followed, as
    // then it is done afterwards. Shows failures.
    void OnScanningMoved(uint32_t moved);
    uint32_t MovedMeanwhile() const { return m_moved_meanwhile; }
    // The scanner with the scanning settings, then with the profile. False if the page may not go on. Throws.
    bool ApplyScanning(const Scope& scope);
    // The controls have a new value: it goes into the working preset and to the scanner. False if that
    // failed, which was told, or the page may not go on.
    bool Follow();
    // What was chosen is in the record: likewise, without looking at what can be used. Shows failures.
    void FollowChosen();
    // A slider was held while the page is left; what it shows of the profile is taken. One of the scanning
    // settings, of which nobody was told, goes back. Throws.
    bool TakeHeldSlider();
    void ShowRecord();
    void ShowRecordInEdits();
    // Until EnableControls is told otherwise.
    void DisableControlsOfScanner() noexcept;
    PageLocations& Locations() const { return m_kind.locations(); }

    CScannerPreviewCtrl m_preview;
    ValueControls m_values;
    FlagBoxes m_flags;
    GainChooser m_gains;
    FieldOfView m_field_of_view;
    ScannerReadouts m_readouts;
    MGlobalScanningSettings m_scanning;  // as read last, with what the operator changed since

private:
    struct Notification;

    // What the operator does to a control.
    void OnListSelection(ui::Control& list);
    void OnEdit(ui::Control& edit, uint32_t code);
    void OnEditChanged(ui::Control& edit);
    void OnExposureChanged(ui::Control& edit);
    void OnEditLeft(ui::Control& edit);
    void OnFlag(ui::Control& box);
    void OnGain(ui::Control& list);
    void OnDetect(ui::Control& button);

    void EndSession() noexcept;
    bool SettingsToData(IDynamicSettingsPreset& preset);

    const SettingsPageKind& m_kind;
    ExposureDetection m_detection;
    bool m_follows_scanning = false;
    uint32_t m_moved_meanwhile = 0;  // while that is so
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
