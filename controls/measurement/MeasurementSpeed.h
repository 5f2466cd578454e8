// The slider of the measuring speed, with a label for each of its four places. A member of the measurement
// page; on the thread of the user interface.
#pragma once

#include <cstdint>

#include "controls/editor/SettingsPage.h"
#include "platform/ui/dialog.h"

namespace hx {

class MeasurementSpeed {
public:
    MeasurementSpeed(SettingsPage& page, ui::Dialog& dialog, MErrorLocation& location)
        : m_page(page), m_dialog(dialog), m_location(location) {}

    // Whether the scanner can be slowed down, and its selection: 0 full speed to 3, a quarter; -1 for none.
    bool IsEnabled() const { return m_enabled; }
    int32_t Selection() const { return m_selection; }
    void Set(bool enabled, int32_t selection);
    // 0 unless enabled: what goes into the scanning settings.
    int32_t SelectionToScanWith() const { return m_enabled ? m_selection : 0; }
    // That of the slider's place becomes the selection; gives the one before.
    int32_t TakeSlider();

    // Labels are made anew with the next Show.
    void ForgetLabels() { m_labels_done = false; }
    // Hides all of it, or shows it as it is. Throws: the scanner is asked for its frame rate, and its
    // selection may be none that there is.
    void Show();
    // The slider alone, without asking anybody.
    void ShowPlace();

private:
    void MakeLabels();

    SettingsPage& m_page;
    ui::Dialog& m_dialog;
    MErrorLocation& m_location;
    bool m_enabled = false;
    int32_t m_selection = -1;
    bool m_labels_done = false;
};

}  // namespace hx
