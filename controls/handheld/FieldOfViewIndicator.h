// The box for the light with which a handheld scanner shows where it measures. A member of the handheld page;
// on the thread of the user interface.
#pragma once

#include "hxapi/MGlobalScanningSettings.h"
#include "platform/ui/dialog.h"

namespace hx {

class FieldOfViewIndicator {
public:
    explicit FieldOfViewIndicator(ui::Dialog& dialog) : m_dialog(dialog) {}

    // Ticked whatever the brightness; from the box it is all or nothing.
    void ShowIn(const MGlobalScanningSettings& settings);
    void TakeInto(MGlobalScanningSettings& settings) const;

private:
    ui::Dialog& m_dialog;
};

}  // namespace hx
