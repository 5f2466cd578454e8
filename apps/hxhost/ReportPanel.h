// What the operator sends to whoever is to help: a report of the diagnostics page, the versions and the last
// errors, copied as text, whatever page is shown. On the thread of the user interface.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "apps/hxhost/HostTexts.h"
#include "apps/hxhost/PageArea.h"
#include "apps/hxhost/PanelControls.h"
#include "platform/ui/controls.h"
#include "platform/ui/dialog.h"

namespace hxhost {

class ReportPanel {
public:
    ReportPanel(SimulatedScanner& scanner, PageArea& pages, const HostTexts& texts, Tell tell)
        : m_scanner(scanner), m_pages(pages), m_texts(texts), m_tell(std::move(tell)) {}

    void BindTo(hx::ui::Dialog& dialog);
    // Once the controls are there. Serial numbers are left out until somebody wants them.
    void Fill();
    // What a person did; false if it is none of these controls.
    bool OnCommand(const hx::ui::Control& control);

private:
    void Copy();
    // What was told once is kept: the log still has it when the driver fails.
    void LearnNumbers();
    // None of a model that has told none yet: those of others do not make its errors safe to tell.
    std::vector<std::wstring> KnownNumbers() const;

    SimulatedScanner& m_scanner;
    PageArea& m_pages;
    const HostTexts& m_texts;
    const Tell m_tell;
    std::set<std::wstring> m_numbers;
    std::set<std::wstring> m_models_known;
    hx::ui::Button m_copy;
    hx::ui::CheckBox m_serial_numbers;
};

}  // namespace hxhost
