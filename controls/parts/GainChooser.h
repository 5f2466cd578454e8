// The gains of the scanner on a settings page: the list and its label, and where the dialog has one, the box
// "High ISO mode". A member of its page; on the thread of the user interface.
#pragma once

#include <optional>

#include "controls/editor/SettingsPage.h"
#include "platform/ui/dialog.h"

namespace hx {

// The box, which the measurement page alone has.
inline constexpr uint32_t kHighIsoBox = 288;

class GainChooser {
public:
    // Both outlive this. Where errors are raised is the page's.
    GainChooser(SettingsPage& page, ui::Dialog& dialog, MErrorLocation& location)
        : m_page(page), m_dialog(dialog), m_location(location) {}

    // Nothing is to be seen until there is a scanner.
    void Hide();
    // The list anew, and SupportedGains. Unless the configured scanner is connected there are none: nothing
    // is to be seen, and any gain is taken. A scanner that does not tell its gains has one in the list, which
    // is hidden, and takes any. Throws on a gain that is no number: see GainOfText.
    void Fill();
    // The record's gain in the list (the first one if it is not there), and in the box, where there is one.
    void ShowGain();
    void ShowGainInList();
    // What the operator chose goes into the record; false if that is nothing.
    bool TakeChosen();
    bool TakeHighIso();

private:
    // As texts; none if the scanner does not tell them, which is logged.
    std::optional<std::vector<std::wstring>> AskForGains();
    void ShowList(bool visible);

    SettingsPage& m_page;
    ui::Dialog& m_dialog;
    MErrorLocation& m_location;
};

// An unsigned decimal number: blanks and a sign may stand in front, anything behind. Raises "invalid stoul
// argument" or, above 32 bits, "stoul argument out of range".
uint32_t GainOfText(const std::wstring& text, MErrorLocation& location);

}  // namespace hx
