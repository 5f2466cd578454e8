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
    // end of a slider's tracking; false if that failed or the page may not go on. Afterwards, also if that
    // failed, the settings are applied, unless the page was left or ended; and what the mouse did meanwhile
    // is forgotten. Shows failures.
    void Run(const std::function<bool()>& shown);

private:
    using Scope = SettingsPage::Scope;

    // False if it may not go on. Throw.
    bool DetectExposure(const Scope& scope, const std::function<bool()>& shown);
    bool DetectLaserPower(const Scope& scope, const std::function<bool()>& shown);
    // The page may be gone when this returns or throws.
    template <class Value>
    void Ask(int32_t line, const wchar_t* call,
             HRESULT (STDMETHODCALLTYPE ICalibrationHandle::*detect)(Value*), Value* value);

    SettingsPage& m_page;
    MErrorLocation& m_location;
};

}  // namespace hx
