// The two sliders that reduce the field of view, with their labels: which of them a scanner has, and what
// they stand for in the scanning settings. A member of its page; on the thread of the user interface.
#pragma once

#include "hxapi/MGlobalScanningSettings.h"
#include "platform/ui/dialog.h"

namespace hx {

class FieldOfView {
public:
    explicit FieldOfView(ui::Dialog& dialog) : m_dialog(dialog) {}

    // When the dialog is there: ranges, and the sliders as the settings are.
    void Initialise(const MGlobalScanningSettings& settings);
    // Each 0 for the whole, 1 for half of it, as the settings are; and back.
    void ShowIn(const MGlobalScanningSettings& settings);
    void TakeInto(MGlobalScanningSettings& settings) const;

private:
    ui::Dialog& m_dialog;
};

}  // namespace hx
