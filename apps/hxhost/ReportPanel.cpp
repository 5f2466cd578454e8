#include "apps/hxhost/ReportPanel.h"

#include <iterator>

#include "apps/hosting/report/DiagnosticReport.h"
#include "apps/hosting/report/DriverSerialNumbers.h"
#include "apps/hxhost/ids.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/ui/services.h"

namespace hxhost {
namespace {

using hosting::ReportWord;

constexpr const wchar_t* kPage = kProgIdHXDiagnosticsCtrl;

constexpr uint32_t kWords[] = {
    IDS_WORD_TITLE,
    IDS_WORD_TIME,
    IDS_WORD_LEFT_OUT,
    IDS_WORD_NONE,
    IDS_WORD_SOFTWARE,
    IDS_WORD_PLATFORM,
    IDS_WORD_RENDERER,
    IDS_WORD_SYSTEM,
    IDS_WORD_OPERATING_SYSTEM,
    IDS_WORD_ARCHITECTURE,
    IDS_WORD_PROCESSORS,
    IDS_WORD_LANGUAGE,
    IDS_WORD_ERRORS,
    IDS_WORD_ERRORS_LEFT_OUT,
};
static_assert(std::size(kWords) == static_cast<size_t>(ReportWord::count_));

}  // namespace

void ReportPanel::BindTo(hx::ui::Dialog& dialog) {
    dialog.Bind(IDC_REPORT, m_copy);
    dialog.Bind(IDC_SERIALS, m_serial_numbers);
}

void ReportPanel::Fill() {
    const bool is_there = m_pages.IsInstalled(kPage);
    EnableWithTip(m_copy, is_there, m_texts, IDS_TIP_REPORT, IDS_TIP_NO_REPORT);
    EnableWithTip(m_serial_numbers, is_there, m_texts, IDS_TIP_SERIALS, IDS_TIP_NO_REPORT);
}

bool ReportPanel::OnCommand(const hx::ui::Control& control) {
    if (&control == &m_copy) {
        Copy();
        m_pages.CloseBehind();
    }
    return &control == &m_copy || &control == &m_serial_numbers;
}

void ReportPanel::Copy() {
    const auto failed = [&](const std::wstring& reason) {
        m_tell(m_texts.Text(IDS_REPORT_NOT_COPIED, {{L"reason", reason}}));
    };
    hosting::HostedPage* page = nullptr;
    const hosting::Answer answer = m_pages.OpenBehind(kPage, page);
    if (!answer.IsDone()) return failed(ReasonOf(answer));
    LearnNumbers();
    const hx::ui::Dialog* const dialog = page->Dialog();
    if (!dialog) return failed(NameOf(E_FAIL));
    const bool whole = m_serial_numbers.IsChecked();
    const auto report = hosting::MakeReport(
        {*dialog, kPage, m_texts.Tag(), whole, KnownNumbers()},
        [this](ReportWord word) { return m_texts.Text(kWords[static_cast<size_t>(word)]); });
    if (!hx::ui::CopyToClipboard(report.Text())) return failed(m_texts.Text(IDS_NO_CLIPBOARD));
    m_tell(m_texts.Text(whole ? IDS_REPORT_COPIED_WHOLE : IDS_REPORT_COPIED));
}

void ReportPanel::LearnNumbers() {
    const auto numbers = hosting::DriverSerialNumbers(m_scanner.Api(), m_scanner.Driver());
    m_numbers.insert(numbers.begin(), numbers.end());
    if (!numbers.empty()) m_models_known.insert(m_scanner.Model());
}

std::vector<std::wstring> ReportPanel::KnownNumbers() const {
    if (!m_models_known.contains(m_scanner.Model())) return {};
    return {m_numbers.begin(), m_numbers.end()};
}

}  // namespace hxhost
