#include "apps/hxhost/ScannerPanel.h"

#include <algorithm>
#include <iterator>

#include "apps/hxhost/CallWords.h"
#include "apps/hxhost/ids.h"

namespace hxhost {
namespace {

struct SurfaceRow {
    const wchar_t* id;
    uint32_t name;
};
constexpr SurfaceRow kSurfaces[] = {
    {L"plane", IDS_SURFACE_PLANE},     {L"steps", IDS_SURFACE_STEPS}, {L"waves", IDS_SURFACE_WAVES},
    {L"sphere", IDS_SURFACE_SPHERE},   {L"shiny", IDS_SURFACE_SHINY}, {L"dark", IDS_SURFACE_DARK},
    {L"nothing", IDS_SURFACE_NOTHING},
};

// One that has none is shown by its id.
std::wstring NameOfSurface(const std::wstring& id, const HostTexts& texts) {
    const auto* const row = std::ranges::find(kSurfaces, id, &SurfaceRow::id);
    return row == std::end(kSurfaces) ? id : texts.Text(row->name);
}

}  // namespace

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
    m_surfaces = m_scanner.Surfaces();
    for (const std::wstring& each : m_surfaces) m_surface.Add(NameOfSurface(each, m_texts));
    for (int32_t state = 0; state < kStates; ++state) m_connection.Add(NameOfState(state, m_texts));
    const auto before = std::ranges::find(m_surfaces, surface);
    m_surface.Select(before == m_surfaces.end() ? 0 : static_cast<int32_t>(before - m_surfaces.begin()));
    Check(L"SetSurface", m_scanner.SetSurface(Surface()));
    m_surface.SetToolTip(m_texts.Text(IDS_TIP_SURFACE));
    m_connection.SetToolTip(m_texts.Text(IDS_TIP_CONNECTION));
    ShowModel();
    ShowState(0);
}

std::wstring ScannerPanel::Surface() const {
    const int32_t chosen = m_surface.Selected();
    return chosen < 0 ? std::wstring() : m_surfaces.at(static_cast<size_t>(chosen));
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
            if (Check(L"Disconnect", m_scanner.Unplug())) m_tell(m_texts.Text(IDS_AWAY));
            return true;
        default:
            return false;
    }
}

bool ScannerPanel::Check(const wchar_t* call, HRESULT result) {
    if (SUCCEEDED(result)) return true;
    m_tell(m_texts.Text(IDS_CALL_FAILED, {{L"call", call}, {L"reason", NameOf(result)}}));
    return false;
}

}  // namespace hxhost
