// The button "Detect": lets the scanner find its exposure and, unless that is automatic, its laser power. One
// detection at a time runs in the whole process. Used by the settings pages, on the thread of the user
// interface; messages are dispatched while the scanner works.
#pragma once

#include <functional>

#include "controls/editor/SettingsPage.h"

namespace hx {

class ExposureDetection {
public:
    ExposureDetection(SettingsPage& page, MErrorLocation& location) : m_page(page), m_location(location) {}

    // Does nothing while one runs. Each value found goes into the record, then `shown` is called, as at the
    // end of a slider's tracking; false if that failed or the page may not go on. Afterwards, in any case,
    // the settings are applied and what the mouse did meanwhile is forgotten. Shows failures.
    void Run(const std::function<bool()>& shown);

private:
    // False if it may not go on. Throw.
    bool DetectExposure(const std::function<bool()>& shown);
    bool DetectLaserPower(const std::function<bool()>& shown);

    SettingsPage& m_page;
    MErrorLocation& m_location;
};

}  // namespace hx
