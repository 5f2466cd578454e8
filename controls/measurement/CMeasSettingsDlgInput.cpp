// What the operator does to the controls, and what comes of it.
#include <algorithm>

#include "controls/measurement/CMeasSettingsDlg.h"
#include "controls/measurement/MeasControls.h"
#include "platform/ui/codes.h"

namespace hx {

struct CMeasSettingsDlg::Notification {
    uint32_t control;
    uint32_t code;
    void (CMeasSettingsDlg::*handler)(ui::Control& control);
};

// Sliders that do not stand for a value of the profile.
struct CMeasSettingsDlg::Slider {
    uint32_t control;
    void (CMeasSettingsDlg::*handler)();
};

void CMeasSettingsDlg::OnCommand(ui::Control& control, uint32_t code) {
    using Page = CMeasSettingsDlg;
    static constexpr Notification kNotifications[] = {
        {kProfileList, LBN_SELCHANGE, &Page::OnListSelection},
        {kLaserPowerEdit, EN_CHANGE, &Page::OnEditChanged},
        {kLaserPowerEdit, EN_KILLFOCUS, &Page::OnEditLeft},
        {kExposureEdit, EN_CHANGE, &Page::OnExposureChanged},
        {kExposureEdit, EN_KILLFOCUS, &Page::OnEditLeft},
        {kThresholdEdit, EN_CHANGE, &Page::OnEditChanged},
        {kThresholdEdit, EN_KILLFOCUS, &Page::OnEditLeft},
        {kInclinationEdit, EN_CHANGE, &Page::OnEditChanged},
        {kInclinationEdit, EN_KILLFOCUS, &Page::OnEditLeft},
        {kEdgeFilterEdit, EN_CHANGE, &Page::OnEditChanged},
        {kEdgeFilterEdit, EN_KILLFOCUS, &Page::OnEditLeft},
        {kAutomaticBox, BN_CLICKED, &Page::OnFlag},
        {kEdgeFilter3DBox, BN_CLICKED, &Page::OnFlag},
        {kReflectionFilterBox, BN_CLICKED, &Page::OnFlag},
        {kGainList, CBN_SELCHANGE, &Page::OnGain},
        {kHighIsoBox, BN_CLICKED, &Page::OnHighIso},
        {kDetectButton, BN_CLICKED, &Page::OnDetect},
    };
    const auto found = std::ranges::find_if(kNotifications, [&](const Notification& row) {
        return row.control == control.Id() && row.code == code;
    });
    if (found != std::end(kNotifications)) (this->*found->handler)(control);
}

void CMeasSettingsDlg::OnScroll(ui::TrackBar& track_bar, uint32_t code, int32_t /*position*/) {
    static constexpr Slider kSliders[] = {
        {kWidthSlider, &CMeasSettingsDlg::OnFieldOfViewSlider},
        {kHeightSlider, &CMeasSettingsDlg::OnFieldOfViewSlider},
        {kSpeedSlider, &CMeasSettingsDlg::OnSpeedSlider},
    };
    m_tracking.exchange(code != TB_ENDTRACK);
    // Keys and clicks beside the thumb are followed at their end.
    if (code != TB_ENDTRACK && code != TB_THUMBPOSITION && code != TB_THUMBTRACK) return;
    const auto found =
        std::ranges::find_if(kSliders, [&](const Slider& row) { return row.control == track_bar.Id(); });
    if (found != std::end(kSliders)) return (this->*found->handler)();
    if (!track_bar.IsVertical()) Follow();
}

bool CMeasSettingsDlg::Follow() {
    if (Operations().IsClosed()) return false;
    const Scope scope(Operations());
    const bool followed = Attempt([&](const Scope&) { OnSettingChanged(true); });
    // Also of a value that the scanner refused, and if the host came in while that was told: it is what the
    // controls show.
    if (scope.IsSessionOpen() && IsReady()) EnableControls(true);
    return followed && scope.MayGoOn();
}

void CMeasSettingsDlg::OnListSelection(ui::Control& /*list*/) {
    OnPresetSelectionChanged();
}

void CMeasSettingsDlg::OnEditChanged(ui::Control& edit) {
    if (!IsReady() || m_enabling) return;
    Attempt([&](const Scope&) {
        if (m_values.TakeTyped(edit.Id(), Data())) OnSettingChanged(false);
    });
}

void CMeasSettingsDlg::OnExposureChanged(ui::Control& edit) {
    if (!Data().edit_notifications_enabled) return;
    const FlagGuard reading(Data().edit_notifications_enabled, false, Operations());
    OnEditChanged(edit);
}

void CMeasSettingsDlg::OnEditLeft(ui::Control& /*edit*/) {
    if (!IsReady() || m_enabling) return;
    Attempt([&](const Scope&) {
        m_values.TakeEdits(Data());
        m_values.ShowInSliders(Data());
        OnSettingChanged(true);
    });
}

void CMeasSettingsDlg::OnFlag(ui::Control& /*box*/) {
    if (!IsReady()) return;
    m_values.TakeEdits(Data());
    m_flags.TakeInto(Data());
    Follow();
}

void CMeasSettingsDlg::OnGain(ui::Control& /*list*/) {
    if (!IsReady() || !m_gains.TakeChosen()) return;
    Attempt([&](const Scope&) { OnSettingChanged(true); });
}

void CMeasSettingsDlg::OnHighIso(ui::Control& /*box*/) {
    if (!IsReady() || !m_gains.TakeHighIso()) return;
    Attempt([&](const Scope&) { OnSettingChanged(true); });
}

void CMeasSettingsDlg::OnDetect(ui::Control& /*button*/) {
    m_detection.Run([this] {
        m_tracking.exchange(false);
        m_values.ShowInSliders(Data());
        ShowRecordInEdits();
        return Follow();
    });
}

void CMeasSettingsDlg::OnFieldOfViewSlider() {
    Attempt([&](const Scope& scope) {
        m_field_of_view.TakeInto(m_scanning);
        ApplyScanning(scope);
    });
}

void CMeasSettingsDlg::OnSpeedSlider() {
    Attempt([&](const Scope& scope) {
        const int32_t before = m_speed.TakeSlider();
        try {
            ApplyScanning(scope);
        } catch (...) {
            if (scope.IsSessionOpen()) {
                m_speed.Set(m_speed.IsEnabled(), before);
                m_speed.Show();
            }
            throw;
        }
    });
}

}  // namespace hx
