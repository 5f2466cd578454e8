// What a scanner tells that a settings page only shows: its frame rate, and the exposure in rows of the
// imager. A member of its page; on the thread of the user interface.
#pragma once

#include "controls/editor/SettingsPage.h"
#include "platform/ui/dialog.h"

namespace hx {

class ScannerReadouts {
public:
    // Reads once from the registry whether rows are to be shown. All outlive this; where errors are raised is
    // the page's.
    ScannerReadouts(SettingsPage& page, ui::Dialog& dialog, MErrorLocation& location);

    // Both throw if the scanner does not answer. Only of the configured scanner, when it is connected:
    void ShowFrameRate();
    // With a handle:
    void ShowExposureRows();

    // Without asking anybody.
    void ShowRate(double frame_rate_hz);

private:
    SettingsPage& m_page;
    ui::Dialog& m_dialog;
    MErrorLocation& m_location;
    const bool m_shows_rows;
};

// What a scanner gives its frame rate as [Hz]. Throws.
double FrameRateOf(SettingsPage& page, MErrorLocation& location);

}  // namespace hx
