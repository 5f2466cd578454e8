// The page of the measurement settings of a handheld scanner: beside what settings pages share, sliders that
// stand upright, a list of signal thresholds, and the light that shows the field of view. The child window of
// its control; on the thread of the user interface.
#pragma once

#include "controls/handheld/FieldOfViewIndicator.h"
#include "controls/handheld/ThresholdList.h"
#include "controls/settings_page/ScannerSettingsDlg.h"

namespace hx {

class CHandheldMeasSettingsDlg final : public ScannerSettingsDlg {
public:
    static constexpr uint32_t kTemplate = 280;

    CHandheldMeasSettingsDlg();
    ~CHandheldMeasSettingsDlg() override { End(); }

private:
    void OnControlsCreated() override;
    void OnCommand(ui::Control& control, uint32_t code) override;
    void ShowOwn() override { m_thresholds.Show(Data()); }
    void TakeOwn() override { m_thresholds.TakeInto(Data()); }
    bool ExchangeEdits(uint32_t left_edit) override;
    bool ReadScanning() override;
    void FollowScanning(const Scope& scope, uint32_t moved) override;
    void ShowScanning() override;
    void OnScannerUnusable() noexcept override;
    void RefreshFrameRate() noexcept override;
    void LeaveControls() override;
    // A threshold without a row would be another one then.
    bool TakesShownValues() const override { return false; }

    void OnThreshold();
    void OnIndicator();
    double FrameRate();

    ThresholdList m_thresholds;
    FieldOfViewIndicator m_indicator;
    const bool m_shows_3d_filter;
};

}  // namespace hx
