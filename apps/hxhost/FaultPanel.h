// The part of the window where calls to the scanner are made to fail. On the thread of the user interface.
#pragma once

#include "apps/hxhost/CallLog.h"
#include "apps/hxhost/HostTexts.h"
#include "apps/hxhost/PanelControls.h"
#include "apps/hxhost/SimulatedScanner.h"
#include "platform/ui/controls.h"
#include "platform/ui/dialog.h"

namespace hxhost {

class FaultPanel {
public:
    // What is asked for is entered in `log`.
    FaultPanel(SimulatedScanner& scanner, const HostTexts& texts, CallLog& log, Tell tell)
        : m_scanner(scanner), m_texts(texts), m_log(log), m_tell(std::move(tell)) {}

    void BindTo(hx::ui::Dialog& dialog);
    // Once the controls are there.
    void Fill();
    // What a person did; false if it is none of these controls.
    bool OnCommand(const hx::ui::Control& control);

private:
    void Inject();
    void Refuse(uint32_t why, hx::ui::Edit& wrong);

    SimulatedScanner& m_scanner;
    const HostTexts& m_texts;
    CallLog& m_log;
    const Tell m_tell;
    hx::ui::ComboBox m_operation;
    hx::ui::ComboBox m_result;
    hx::ui::Edit m_times;
    hx::ui::Edit m_delay;
    hx::ui::CheckBox m_hang_up;
    hx::ui::Button m_inject;
    hx::ui::Button m_clear;
};

}  // namespace hxhost
