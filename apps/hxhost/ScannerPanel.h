// The part of the window where a person has the simulated scanner in his hands: its model, what lies in front
// of it, its cable. On the thread of the user interface.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/hxhost/HostTexts.h"
#include "apps/hxhost/PanelControls.h"
#include "apps/hxhost/SimulatedScanner.h"
#include "platform/ui/controls.h"
#include "platform/ui/dialog.h"

namespace hxhost {

class ScannerPanel {
public:
    // The second is asked for another model: pages are closed before it and opened after it.
    ScannerPanel(SimulatedScanner& scanner, const HostTexts& texts, Tell tell,
                 std::function<void(const std::wstring& model)> change_model);

    void BindTo(hx::ui::Dialog& dialog);
    // Once the controls are there. An unknown surface leaves the first one.
    void Fill(const std::wstring& surface);
    void ShowState(int32_t state);
    void ShowModel();
    std::wstring Surface() const;
    // What a person did; false if it is none of these controls.
    bool OnCommand(const hx::ui::Control& control);

private:
    bool Check(const wchar_t* call, HRESULT result);

    SimulatedScanner& m_scanner;
    const HostTexts& m_texts;
    const Tell m_tell;
    const std::function<void(const std::wstring& model)> m_change_model;
    std::vector<std::wstring> m_surfaces;  // as the simulator calls them
    hx::ui::ComboBox m_model;
    hx::ui::ComboBox m_surface;
    hx::ui::ComboBox m_connection;
    hx::ui::Button m_plug;
    hx::ui::Button m_unplug;
};

}  // namespace hxhost
