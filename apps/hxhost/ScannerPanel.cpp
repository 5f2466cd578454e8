#include "apps/hxhost/ScannerPanel.h"

#include "apps/hxhost/CallWords.h"
#include "apps/hxhost/ids.h"

namespace hxhost {

ScannerPanel::ScannerPanel(SimulatedScanner& scanner, const HostTexts& texts, Tell tell,
                           std::function<void(const std::wstring& model)> change_model)
    : m_scanner(scanner), m_texts(texts), m_tell(std::move(tell)), m_change_model(std::move(change_model)) {}

void ScannerPanel::BindTo(hx::ui::Dialog& dialog) {
    dialog.Bind(IDC_MODEL, m_model);
    dialog.Bind(IDC_SURFACE, m_surface);
    dialog.Bind(IDC_CONNECTION, m_connection);
    dialog.Bind(IDC_PLUG, m_plug);
    dialog.Bind(IDC_UNPLUG, m_unplug);
}

void ScannerPanel::Fill(const std::wstring& surface) {
    constexpr int32_t kStates = 3;
    for (std::wstring& model : m_scanner.Models()) m_model.Add(std::move(model));
    for (std::wstring& each : m_scanner.Surfaces()) m_surface.Add(std::move(each));
    for (int32_t state = 0; state < kStates; ++state) m_connection.Add(NameOfState(state, m_texts));
    if (!Choose(m_surface, surface)) m_surface.Select(0);
    Check(L"SetSurface", m_scanner.SetSurface(Surface()));
    m_surface.SetToolTip(m_texts.Text(IDS_TIP_SURFACE));
    m_connection.SetToolTip(m_texts.Text(IDS_TIP_CONNECTION));
    ShowModel();
    ShowState(0);
}

void ScannerPanel::ShowState(int32_t state) {
    m_connection.Select(state);
    EnableWithTip(m_model, state == 0, m_texts, IDS_TIP_MODEL, IDS_TIP_MODEL_FIXED);
    EnableWithTip(m_plug, state == 0, m_texts, IDS_TIP_PLUG, IDS_TIP_PLUGGED);
    EnableWithTip(m_unplug, state != 0, m_texts, IDS_TIP_UNPLUG, IDS_TIP_UNPLUGGED);
}

void ScannerPanel::ShowModel() {
    Choose(m_model, m_scanner.Model());
}

bool ScannerPanel::OnCommand(const hx::ui::Control& control) {
    switch (control.Id()) {
        case IDC_MODEL:
            m_change_model(Chosen(m_model));
            return true;
        case IDC_SURFACE:
            Check(L"SetSurface", m_scanner.SetSurface(Surface()));
            return true;
        case IDC_CONNECTION:
            Check(L"SetConnectionState", m_scanner.SetState(m_connection.Selected()));
            return true;
        case IDC_PLUG:
            Check(L"Connect", m_scanner.Plug());
            return true;
        case IDC_UNPLUG:
            Check(L"Disconnect", m_scanner.Unplug());
            return true;
        default:
            return false;
    }
}

void ScannerPanel::Check(const wchar_t* call, HRESULT result) {
    if (SUCCEEDED(result)) return;
    m_tell(m_texts.Text(IDS_CALL_FAILED, {{L"call", call}, {L"reason", NameOf(result)}}));
}

}  // namespace hxhost
