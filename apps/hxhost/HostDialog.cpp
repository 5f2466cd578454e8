#include "apps/hxhost/HostDialog.h"

#include <chrono>

#include "platform/ui/codes.h"

namespace hxhost {
namespace {

constexpr uint32_t kFetch = 0x8001;  // a message to this window alone
constexpr std::chrono::milliseconds kBetweenFetches{100};

// The page and its place grow, the panels stay at the right, the log grows downwards.
constexpr hx::ui::AnchorRule kAnchors[] = {
    {IDC_INTRODUCTION, 0, 0, 1, 0},
    {IDC_PAGE_PLACE, 0, 0, 1, 1},
    {hx::kNoControlId, 1, 0, 1, 0},  // labels and frames of the panels
    {IDC_MODEL, 1, 0, 1, 0},
    {IDC_SURFACE, 1, 0, 1, 0},
    {IDC_CONNECTION, 1, 0, 1, 0},
    {IDC_PLUG, 1, 0, 1, 0},
    {IDC_UNPLUG, 1, 0, 1, 0},
    {IDC_OPERATION, 1, 0, 1, 0},
    {IDC_RESULT, 1, 0, 1, 0},
    {IDC_TIMES, 1, 0, 1, 0},
    {IDC_DELAY, 1, 0, 1, 0},
    {IDC_HANG_UP, 1, 0, 1, 0},
    {IDC_INJECT, 1, 0, 1, 0},
    {IDC_CLEAR, 1, 0, 1, 0},
    {IDC_LOG_GROUP, 1, 0, 1, 1},
    {IDC_LOG, 1, 0, 1, 1},
    {IDC_QUESTIONS, 1, 1, 1, 1},
    {IDC_STATUS, 0, 1, 1, 1},
    {static_cast<uint32_t>(IDOK), 1, 1, 1, 1},
    {static_cast<uint32_t>(IDCANCEL), 1, 1, 1, 1},
    {IDC_DISCARD, 1, 1, 1, 1},
};

}  // namespace

HostDialog::HostDialog(SimulatedScanner& scanner, const HostTexts& texts, WindowMemory memory,
                       std::span<const PageRow> pages)
    : m_scanner(scanner),
      m_texts(texts),
      m_memory(std::move(memory)),
      m_log(scanner, texts),
      m_panel(
          scanner, texts, [this](const std::wstring& text) { Say(text); },
          [this](const std::wstring& model) { ChangeModel(model); }),
      m_faults(scanner, texts, m_log, [this](const std::wstring& text) { Say(text, True::until_failed); }),
      m_pages(scanner, texts, pages),
      m_report(scanner, m_pages, texts, [this](const std::wstring& text) { Say(text); }) {
    m_panel.BindTo(*this);
    m_faults.BindTo(*this);
    m_pages.BindTo(*this);
    m_report.BindTo(*this);
    Bind(IDC_LOG, m_log.List());
    Bind(IDC_QUESTIONS, m_questions);
    Bind(IDC_STATUS, m_status);
    Bind(static_cast<uint32_t>(IDOK), m_save);
}

HostDialog::~HostDialog() {
    Destroy();
}

bool HostDialog::OnInitDialog() {
    SetAnchors({std::begin(kAnchors), std::end(kAnchors)});
    Move(FittedToScreen(m_memory.window, TemplateSize()));
    m_panel.Fill(m_memory.surface);
    m_faults.Fill();
    m_pages.Fill();
    m_report.Fill();
    m_questions.SetToolTip(m_texts.Text(IDS_TIP_QUESTIONS));
    Find(IDCANCEL)->SetToolTip(m_texts.Text(IDS_TIP_CLOSE));
    Find(IDC_DISCARD)->SetToolTip(m_texts.Text(IDS_TIP_DISCARD));
    ShowPage();
    if (!m_announced.empty()) Say(m_announced);
    FetchLater();
    return true;
}

void HostDialog::OnCreateFailed(const hx::ui::DialogError& error) {
    m_why_not = hx::ui::DialogError::NameOf(error.reason);
}

void HostDialog::OnCommand(hx::ui::Control& control, uint32_t code) {
    if (control.Kind() == hx::ui::ControlKind::edit || &control == &m_log.List()) return;
    SayNothing();
    if (control.Id() == IDC_DISCARD) {
        EndDialog(static_cast<int32_t>(IDC_DISCARD));
    } else if (&control == &m_questions) {
        m_log.ShowQuestions(m_questions.IsChecked());
    } else if (control.Id() == IDC_PAGES && code == CBN_SELCHANGE) {
        ShowPage();
    } else if (!m_report.OnCommand(control) && !m_panel.OnCommand(control)) {
        m_faults.OnCommand(control);
    }
}

void HostDialog::OnMessage(const hx::WindowMessage& message) {
    if (message.id != kFetch) return;
    FetchCalls();
    FetchLater();
}

void HostDialog::FetchLater() {
    hx::PostWindowMessageAfter(Handle(), {kFetch, 0, 0}, kBetweenFetches);
}

void HostDialog::FetchCalls() {
    m_log.Fetch();
    ForgetWhatIsOver();
    if (m_log.State() == m_state_shown) return;
    m_state_shown = m_log.State();
    m_panel.ShowState(m_state_shown);
}

void HostDialog::OnSize(const hx::ui::Size& size) {
    Dialog::OnSize(size);
    m_pages.Move();
}

void HostDialog::OnDestroy() {
    m_memory = {Bounds(), m_scanner.Model(), m_panel.Surface()};
    m_pages.Close();
    Dialog::OnDestroy();
}

void HostDialog::OnCancel() {
    if (Save(IDS_NOT_CLOSED)) EndDialog(static_cast<int32_t>(IDCANCEL));
}

// True if the page may be closed.
bool HostDialog::Save(uint32_t refused) {
    SayNothing();
    bool may_close = false;
    const hosting::Answer answer = m_pages.Save(may_close);
    if (!answer.IsDone()) {
        Say(m_texts.Text(IDS_CALL_FAILED, {{L"call", L"Save"}, {L"reason", ReasonOf(answer)}}));
        return false;
    }
    if (!may_close) {
        Say(m_texts.Text(refused), True::until_edited);
    } else if (m_pages.HasOpen()) {
        const std::wstring profile = m_scanner.DisplayNameOf(m_pages.Profile());
        // A page without profiles has nothing to name.
        Say(profile.empty() ? m_texts.Text(IDS_SAVED_ALL) : m_texts.Text(IDS_SAVED, {{L"profile", profile}}),
            True::until_edited);
    }
    return may_close;
}

// A page belongs to one device as long as it lives.
void HostDialog::ChangeModel(const std::wstring& model) {
    if (model == m_scanner.Model()) return;
    if (!Save(IDS_MODEL_STAYS)) {
        m_panel.ShowModel();
        return;
    }
    m_pages.Close();
    if (const HRESULT result = m_scanner.SetModel(model); FAILED(result)) {
        Say(m_texts.Text(IDS_CALL_FAILED, {{L"call", L"SetModel"}, {L"reason", NameOf(result)}}));
    }
    m_panel.ShowModel();
    ShowPage();
}

void HostDialog::ShowPage() {
    m_pages.ShowChosen();
    EnableSave();
}

void HostDialog::EnableSave() {
    EnableWithTip(m_save, m_pages.HasOpen(), m_texts, IDS_TIP_SAVE, IDS_TIP_NO_PAGE);
}

void HostDialog::ForgetWhatIsOver() {
    const bool edited = m_log.TakeEdited() && m_said_is == True::until_edited;
    const bool failed = m_log.TakeFaultsUsedUp() && m_said_is == True::until_failed;
    if (edited || failed) SayNothing();
}

// In the log, too, where it stays when the next is told.
void HostDialog::Say(const std::wstring& text, True how_long) {
    m_log.Fetch();
    m_log.TakeEdited();
    m_log.TakeFaultsUsedUp();
    m_status.SetText(text);
    m_said_is = how_long;
    m_log.Add(text);
}

}  // namespace hxhost
