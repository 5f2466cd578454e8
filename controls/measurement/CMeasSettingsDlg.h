// The page of the measurement settings: beside what settings pages share, thresholds and filters with sliders
// of their own, the box "High ISO mode", a field of view as the scanner manages it, and the measuring speed.
// The child window of its control; on the thread of the user interface.
#pragma once

#include "controls/measurement/FieldOfViewLayout.h"
#include "controls/measurement/MeasurementSpeed.h"
#include "controls/settings_page/ScannerSettingsDlg.h"

namespace hx {

class CMeasSettingsDlg final : public ScannerSettingsDlg {
public:
    static constexpr uint32_t kTemplate = 203;

    CMeasSettingsDlg();
    ~CMeasSettingsDlg() override { End(); }

private:
    void OnControlsCreated() override { m_speed.Show(); }
    void OnLayOut() override { m_layout.LayOut(m_field_of_view_config); }
    void OnCommand(ui::Control& control, uint32_t code) override;
    void Describe(EnableState& state) const override;
    bool ReadScanning() override;
    uint32_t ScanningOf(uint32_t slider) const override;
    void FollowScanning(const Scope& scope, uint32_t moved) override;
    void ShowScanning() override;
    void OnPresetSelectionChanging() override { m_speed.ForgetLabels(); }
    void NoteConnectionState() override;
    void FillGainList() override;
    void RefreshFrameRate() noexcept override {}  // shown with the field of view
    void LeaveControls() override;

    void OnHighIso();
    // Moves the preview: false if the session was ended in that.
    bool LayOutFieldOfView();
    void ApplyScanningAndSpeed(const Scope& scope);

    FieldOfViewLayout m_layout;
    MeasurementSpeed m_speed;
    int32_t m_field_of_view_config = -1;
};

}  // namespace hx
