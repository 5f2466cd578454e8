// What the operator does to the controls, and what comes of it.
#include <algorithm>

#include "controls/measurement/CMeasSettingsDlg.h"
#include "controls/measurement/MeasControls.h"
#include "platform/ui/codes.h"

namespace hx {
namespace {

// What sliders that do not stand for a value of the profile stand for.
constexpr uint32_t kFieldOfView = 1;
constexpr uint32_t kSpeed = 2;

}  // namespace

struct CMeasSettingsDlg::Notification {
    uint32_t control;
    uint32_t code;
    void (CMeasSettingsDlg::*handler)(ui::Control& control);
};

struct CMeasSettingsDlg::Slider {
    uint32_t control;
    uint32_t moves;
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
        {kWidthSlider, kFieldOfView},
        {kHeightSlider, kFieldOfView},
        {kSpeedSlider, kSpeed},
    };
    m_tracking.exchange(code != TB_ENDTRACK);
    // Keys and clicks beside the thumb are followed at their end.
    if (code != TB_ENDTRACK && code != TB_THUMBPOSITION && code != TB_THUMBTRACK) return;
    const auto found =
        std::ranges::find_if(kSliders, [&](const Slider& row) { return row.control == track_bar.Id(); });
    if (found != std::end(kSliders)) return OnScanningSlider(found->moves);
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
        // A host that shows another page hides this one, and its edit with it. What was typed was taken then.
        if (!Session().IsSelected()) return ShowRecordInEdits();
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
    if (!IsReady()) return;
    const auto shown = [this] {
        m_tracking.exchange(false);
        m_values.ShowInSliders(Data());
        ShowRecordInEdits();
        return Follow();
    };
    // What is found is of the profile that is edited now.
    HoldProfile([&] { m_detection.Run(shown); });
}

// The scanner stops while it takes such settings, and messages come in: what is moved then is followed
// afterwards, never in between.
void CMeasSettingsDlg::OnScanningSlider(uint32_t moved) {
    if (!IsReady()) {
        m_field_of_view.ShowIn(m_scanning);
        m_speed.ShowPlace();
        return;
    }
    if (m_follows_scanning) {
        m_moved_meanwhile |= moved;
        return;
    }
    Attempt([&](const Scope& scope) {
        const FlagGuard following(m_follows_scanning, true, Operations());
        std::exception_ptr failure;
        for (uint32_t next = moved; next != 0;) {
            m_moved_meanwhile = 0;
            try {
                FollowScanning(scope, next);
            } catch (...) {
                if (!failure) failure = std::current_exception();
            }
            next = scope.MayGoOn() ? m_moved_meanwhile : 0;
        }
        if (failure) std::rethrow_exception(failure);
    });
}

void CMeasSettingsDlg::FollowScanning(const Scope& scope, uint32_t moved) {
    if ((moved & kFieldOfView) != 0) m_field_of_view.TakeInto(m_scanning);
    if ((moved & kSpeed) == 0) return ApplyScanning(scope);
    const int32_t before = m_speed.TakeSlider();
    try {
        ApplyScanning(scope);
    } catch (...) {
        if (scope.IsSessionOpen()) {
            // The labels are those of all places. Nor does a slider go back that was moved on meanwhile.
            m_speed.Set(m_speed.IsEnabled(), before);
            if ((m_moved_meanwhile & kSpeed) == 0) m_speed.ShowPlace();
        }
        throw;
    }
}

}  // namespace hx
