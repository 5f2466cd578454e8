// The measurement page in a host's window on no screen.
#pragma once

#include "controls/measurement/CMeasSettingsDlg.h"
#include "tests/controls/settings_page/scripted_page.h"

namespace hx {

// Keys of the registry
inline constexpr uint32_t kSpeedKey = 88;
inline constexpr uint32_t kFieldOfViewKey = 89;

inline constexpr uint32_t kControls[] = {204, 207, 210, 218, 219, 224, 269, 289, 6000};

class MeasurementPage : public ScriptedPage<CMeasSettingsDlg> {
protected:
    Ids Enabled() { return EnabledOf(kControls); }
};

}  // namespace hx
