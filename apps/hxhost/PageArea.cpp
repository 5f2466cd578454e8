#include "apps/hxhost/PageArea.h"

#include <algorithm>

#include "apps/hosting/SettingsMap.h"
#include "apps/hxhost/ids.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/com/loader.h"
#include "platform/system/locale_data.h"

namespace hxhost {
namespace {

constexpr PageRow kPages[] = {
    {kProgIdHXMeasSettingsCtrl, IDS_PAGE_MEASUREMENT},
    {kProgIdHXHandheldMeasSettingsCtrl, IDS_PAGE_HANDHELD},
    {kProgIdHXDiagnosticsCtrl, IDS_PAGE_DIAGNOSTICS},
};
constexpr wchar_t kFunction[] = L"EditDynamicSettingsPresets";

bool IsNotInstalled(HRESULT result) {
    return result == CO_E_CLASSSTRING || result == REGDB_E_CLASSNOTREG;
}

hosting::Answer GiveSettings(hosting::HostedPage& page) {
    hx::ComPtr<IHXSettingsObjectMap> map;
    const HRESULT made = hosting::MakeSettingsMap(map).result;
    return SUCCEEDED(made) ? page.SetSettingsObjectMap(map.get()) : hosting::Answer{made, {}};
}

}  // namespace

std::span<const PageRow> Pages() {
    return kPages;
}

hx::ui::Window* PagePlace::Inner() const {
    const hx::ui::Dialog* const dialog = m_page ? m_page->Dialog() : nullptr;
    return dialog ? dialog->Parent() : nullptr;
}

PageArea::PageArea(SimulatedScanner& scanner, const HostTexts& texts, std::span<const PageRow> rows)
    : m_scanner(scanner), m_texts(texts), m_rows(rows), m_pages(rows.size()) {}

void PageArea::BindTo(hx::ui::Dialog& dialog) {
    dialog.Bind(IDC_PAGES, m_choice);
    dialog.Bind(IDC_PAGE_PLACE, m_place);
}

void PageArea::Fill() {
    for (const PageRow& row : m_rows) m_choice.Add(m_texts.Text(row.name));
    m_choice.Select(0);
    m_choice.SetToolTip(m_texts.Text(IDS_TIP_PAGES));
}

void PageArea::ShowChosen() {
    const auto chosen = static_cast<size_t>(m_choice.Selected());
    if (chosen != m_current) {
        Current().Deselect();
        Current().Show(false);
    }
    m_current = chosen;
    m_place.Hold(Current());
    m_place.SetText({});
    hosting::Answer answer;
    if (IsOpen()) {
        Current().Show(true);
        answer = Current().Select();
    } else {
        answer = Open(Current(), m_rows[m_current], true);
    }
    if (!answer.IsDone()) Explain(answer);
}

// A page knows whose profiles it edits, and is selected, when it meets the scanner: a state of the connection
// sets up only a selected one.
hosting::Answer PageArea::Open(hosting::HostedPage& page, const PageRow& row, bool shown) {
    hosting::Answer answer = page.Create(row.prog_id);
    if (answer.IsDone()) answer = GiveSettings(page);
    if (answer.IsDone()) {
        const LCID locale = hx::LcidOf(m_texts.Tag()).value_or(0);
        answer = page.Open(*m_place.Parent(), m_place.Bounds(), locale);
        if (!shown) page.Show(false);
    }
    if (answer.IsDone()) {
        answer = page.Initialise(m_scanner.Driver(), m_scanner.DeviceName(), kFunction,
                                 hosting::HostedPage::ArgumentsOf(L""));
        // A page without it needs no profile.
        if (answer.result == DISP_E_MEMBERNOTFOUND) answer = {};
    }
    if (answer.IsDone() && shown) answer = page.Select();
    if (answer.IsDone()) answer = page.SetApi(m_scanner.Api());
    if (!answer.IsDone()) page.Close();
    return answer;
}

bool PageArea::HasOpen() const {
    return std::ranges::any_of(m_pages, &hosting::HostedPage::IsCreated);
}

const PageRow* PageArea::Find(std::wstring_view prog_id) const {
    const auto row = std::ranges::find(m_rows, prog_id, &PageRow::prog_id);
    return row != m_rows.end() ? &*row : nullptr;
}

bool PageArea::IsInstalled(std::wstring_view prog_id) const {
    const PageRow* const row = Find(prog_id);
    CLSID clsid;
    return row && SUCCEEDED(CLSIDFromProgID(row->prog_id, &clsid));
}

hosting::Answer PageArea::OpenBehind(std::wstring_view prog_id, hosting::HostedPage*& page) {
    page = nullptr;
    const PageRow* const row = Find(prog_id);
    if (!row) return {CO_E_CLASSSTRING, {}};
    if (row == &m_rows[m_current] && IsOpen()) {
        page = &Current();
        return {};
    }
    CloseBehind();
    hosting::Answer answer = Open(m_behind, *row, false);
    if (answer.IsDone()) page = &m_behind;
    return answer;
}

void PageArea::Explain(const hosting::Answer& failure) {
    if (IsNotInstalled(failure.result)) {
        m_place.SetText(m_texts.Text(IDS_NOT_INSTALLED, {{L"class", m_rows[m_current].prog_id}}));
        return;
    }
    m_place.SetText(m_texts.Text(IDS_PAGE_FAILED, {{L"reason", ReasonOf(failure)}}));
}

void PageArea::Close() {
    CloseBehind();
    for (hosting::HostedPage& page : m_pages) page.Close();
}

void PageArea::Move() {
    for (hosting::HostedPage& page : m_pages) page.Move(m_place.Bounds());
}

hosting::Answer PageArea::Save(bool& may_close) {
    may_close = true;
    for (hosting::HostedPage& page : m_pages) {
        if (!page.IsCreated()) continue;
        hosting::Answer answer = page.Save(may_close);
        if (!answer.IsDone() || !may_close) return answer;
    }
    return {};
}

}  // namespace hxhost
