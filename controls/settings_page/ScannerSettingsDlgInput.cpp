// What the operator does to the controls, and what comes of it.
#include <algorithm>

#include "controls/parts/PageControls.h"
#include "controls/settings_page/ScannerSettingsDlg.h"
#include "platform/ui/codes.h"

namespace hx {

struct ScannerSettingsDlg::Notification {
    uint32_t control;
    uint32_t code;
    void (ScannerSettingsDlg::*handler)(ui::Control& control);
};

void ScannerSettingsDlg::OnCommand(ui::Control& control, uint32_t code) {
    using Page = ScannerSettingsDlg;
    static constexpr Notification kNotifications[] = {
        {kProfileList, LBN_SELCHANGE, &Page::OnListSelection},
        {kAutomaticBox, BN_CLICKED, &Page::OnFlag},
        {kEdgeFilter3DBox, BN_CLICKED, &Page::OnFlag},
        {kReflectionFilterBox, BN_CLICKED, &Page::OnFlag},
        {kGainList, CBN_SELCHANGE, &Page::OnGain},
        {kDetectButton, BN_CLICKED, &Page::OnDetect},
    };
    const auto found = std::ranges::find_if(kNotifications, [&](const Notification& row) {
        return row.control == control.Id() && row.code == code;
    });
    if (found != std::end(kNotifications)) return (this->*found->handler)(control);
    if (m_values.HasEdit(control.Id())) OnEdit(control, code);
}

void ScannerSettingsDlg::OnEdit(ui::Control& edit, uint32_t code) {
    if (code == EN_KILLFOCUS) return OnEditLeft(edit);
    if (code != EN_CHANGE) return;
    edit.Id() == kExposureEdit ? OnExposureChanged(edit) : OnEditChanged(edit);
}

void ScannerSettingsDlg::OnScroll(ui::TrackBar& track_bar, uint32_t code, int32_t /*position*/) {
    m_tracking.exchange(code != TB_ENDTRACK);
    // Keys and clicks beside the thumb are followed at their end.
    if (code != TB_ENDTRACK && code != TB_THUMBPOSITION && code != TB_THUMBTRACK) return;
    const uint32_t id = track_bar.Id();
    const uint32_t moved = id == kWidthSlider || id == kHeightSlider ? kFieldOfView : ScanningOf(id);
    if (moved != 0) return OnScanningMoved(moved);
    if (m_values.HasSlider(id)) Follow();
}

bool ScannerSettingsDlg::Follow() {
    if (Operations().IsClosed()) return false;
    const Scope scope(Operations());
    const bool followed = Attempt([&](const Scope&) { OnSettingChanged(true); });
    // Also of a value that the scanner refused, and if the host came in while that was told: it is what the
    // controls show.
    if (scope.IsSessionOpen() && IsReady()) EnableControls(true);
    return followed && scope.MayGoOn();
}

void ScannerSettingsDlg::OnListSelection(ui::Control& /*list*/) {
    OnPresetSelectionChanged();
}

void ScannerSettingsDlg::OnEditChanged(ui::Control& edit) {
    if (!IsReady() || m_enabling) return;
    Attempt([&](const Scope&) {
        if (m_values.TakeTyped(edit.Id(), Data())) OnSettingChanged(false);
    });
}

void ScannerSettingsDlg::OnExposureChanged(ui::Control& edit) {
    if (!Data().edit_notifications_enabled) return;
    const FlagGuard reading(Data().edit_notifications_enabled, false, Operations());
    OnEditChanged(edit);
}

void ScannerSettingsDlg::OnEditLeft(ui::Control& edit) {
    if (!IsReady() || m_enabling) return;
    Attempt([&](const Scope&) {
        // A host that shows another page hides this one, and its edit with it. What was typed was taken then.
        if (!Session().IsSelected()) return ShowRecordInEdits();
        if (!ExchangeEdits(edit.Id())) return;
        m_values.ShowInSliders(Data());
        OnSettingChanged(true);
    });
}

void ScannerSettingsDlg::OnFlag(ui::Control& /*box*/) {
    if (!IsReady()) return;
    // Connection states that come while an edit is complained of wait until the click was followed. If the
    // page is left meanwhile it is not, and must not seem so.
    Attempt([&](const Scope& scope) {
        if (ExchangeEdits(0)) {
            m_flags.TakeInto(Data());
            Follow();
        } else if (scope.IsSessionOpen()) {
            m_flags.Show(Data());
        }
    });
}

bool ScannerSettingsDlg::ExchangeEdits(uint32_t /*left_edit*/) {
    m_values.TakeEdits(Data());
    return true;
}

void ScannerSettingsDlg::OnGain(ui::Control& /*list*/) {
    if (IsReady() && m_gains.TakeChosen()) FollowChosen();
}

void ScannerSettingsDlg::FollowChosen() {
    Attempt([&](const Scope&) { OnSettingChanged(true); });
}

void ScannerSettingsDlg::OnDetect(ui::Control& /*button*/) {
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
void ScannerSettingsDlg::OnScanningMoved(uint32_t moved) {
    if (!IsReady()) return ShowScanning();
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

}  // namespace hx
