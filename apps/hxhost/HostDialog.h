// The window of this program: the hardware configuration of a measuring application, with a simulated scanner
// beside it. RunModal is the program's loop. On the thread of the user interface; what the simulator's
// threads do is fetched now and then.
#pragma once

#include <span>
#include <string>
#include <utility>

#include "apps/hxhost/CallLog.h"
#include "apps/hxhost/FaultPanel.h"
#include "apps/hxhost/HostTexts.h"
#include "apps/hxhost/PageArea.h"
#include "apps/hxhost/ReportPanel.h"
#include "apps/hxhost/ScannerPanel.h"
#include "apps/hxhost/SimulatedScanner.h"
#include "apps/hxhost/WindowMemory.h"
#include "apps/hxhost/ids.h"
#include "platform/ui/dialog.h"

namespace hxhost {

class HostDialog final : public hx::ui::Dialog {
public:
    // The scanner has its model. Both outlive the dialog. What `memory` remembers counts unless it is wrong.
    HostDialog(SimulatedScanner& scanner, const HostTexts& texts, WindowMemory memory,
               std::span<const PageRow> pages = Pages());
    ~HostDialog() override;

    // What the window has to say when it opens.
    void Announce(std::wstring text) { m_announced = std::move(text); }
    int32_t Run() { return RunModal(m_texts.Module(), IDD_HOST, nullptr); }
    // What is to be remembered, also after it has ended.
    const WindowMemory& Memory() const { return m_memory; }
    // Whether there is a page, and its preview is being shown what the scanner sees.
    bool IsPageOpen() const { return m_pages.IsOpen(); }
    bool IsPreviewFed() const { return m_log.IsPreviewFed(); }
    // Why it could not be created, in English; empty if it could.
    const std::wstring& WhyNotCreated() const { return m_why_not; }

private:
    bool OnInitDialog() override;
    void OnCreateFailed(const hx::ui::DialogError& error) override;
    void OnCommand(hx::ui::Control& control, uint32_t code) override;
    void OnMessage(const hx::WindowMessage& message) override;
    void OnSize(const hx::ui::Size& size) override;
    void OnDestroy() override;
    // Save; Close and Escape.
    void OnOk() override { Save(IDS_NOT_SAVED); }
    void OnCancel() override;

    // What is told if it is cancelled.
    bool Save(uint32_t refused);
    void ChangeModel(const std::wstring& model);
    void ShowPage();
    void EnableSave();
    void FetchCalls();
    void FetchLater();
    // What is told stays until the operator does something else, and no longer than it is true.
    enum class True { always, until_edited, until_failed };
    void Say(const std::wstring& text, True how_long = True::always);
    void SayNothing() { m_status.SetText({}); }
    void ForgetWhatIsOver();

    SimulatedScanner& m_scanner;
    const HostTexts& m_texts;
    WindowMemory m_memory;
    std::wstring m_why_not;
    std::wstring m_announced;
    CallLog m_log;
    ScannerPanel m_panel;
    FaultPanel m_faults;
    PageArea m_pages;
    ReportPanel m_report;
    hx::ui::CheckBox m_questions;
    hx::ui::StaticText m_status;
    hx::ui::Button m_save;
    True m_said_is = True::always;
    int32_t m_state_shown = 0;
};

}  // namespace hxhost
