#include "tests/controls/hosted/monkey.h"

#include <algorithm>

#include "platform/ui/codes.h"

namespace hosted {
namespace {

constexpr uint32_t kDetectButton = 269;

}  // namespace

const std::vector<Monkey::Action>& Monkey::Actions() {
    using enum Action::Kind;
    using N = const std::array<uint32_t, 4>&;
    static constexpr const wchar_t* kTyped[] = {L"",   L"0",    L"1",  L"37",          L"90", L"100", L"101",
                                                L"-5", L"12.7", L"x9", L"99999999999", L" 7", L"\t-"};
    static constexpr uint32_t kKeys[] = {VK_F2, VK_DELETE, VK_UP, VK_DOWN, VK_HOME, VK_END, VK_BACK, VK_TAB};
    static constexpr uint32_t kCommands[] = {32771, 32772, 32773, 32773, 32774, 0};
    static constexpr HRESULT kResults[] = {E_FAIL, E_OUTOFMEMORY, E_ACCESSDENIED, HRESULT(0x80040201)};
    static constexpr uint32_t kCodes[] = {TB_LINEUP, TB_LINEDOWN, TB_PAGEUP, TB_PAGEDOWN, TB_TOP, TB_BOTTOM};
    static constexpr uint32_t kOtherSliders[] = {276, 277, 289};
    static constexpr uint32_t kAllBoxes[] = {224, 225, 253, 288};
    static const std::vector<Action> actions = {
        {"drag", 12, edits, true,
         [](Monkey& m, N n) {
             auto& slider = m.Slider(n[0]);
             m.User().Drag(slider, static_cast<int32_t>(n[1] % static_cast<uint32_t>(slider.Maximum() + 2)));
         }},
        {"drop", 8, edits, true, [](Monkey& m, N n) { m.User().Drop(m.Slider(n[0])); }},
        {"scroll", 8, edits, true,
         [](Monkey& m, N n) { m.User().Scroll(m.Slider(n[0]), Pick(kCodes, n[1])); }},
        {"type", 10, edits, true,
         [](Monkey& m, N n) { m.User().Type(m.At<ui::Edit>(Pick(kEdits, n[0])), Pick(kTyped, n[1])); }},
        {"leave", 5, edits, true,
         [](Monkey& m, N n) { m.User().Focus(m.At<ui::Control>(Pick(kEdits, n[0]))); }},
        {"box", 6, edits, true,
         [](Monkey& m, N n) { m.User().Click(m.At<ui::CheckBox>(Pick(kAllBoxes, n[0]))); }},
        {"gain", 4, edits, true,
         [](Monkey& m, N n) {
             m.User().Choose(m.At<ui::ComboBox>(kGainList), static_cast<int32_t>(n[0] % 4));
         }},
        {"detect", 1, edits, true, [](Monkey& m, N) { m.User().Click(m.At<ui::Button>(kDetectButton)); }},
        {"view", 2, leaves_edits, true,
         [](Monkey& m, N n) { m.User().Scroll(m.At<ui::TrackBar>(Pick(kOtherSliders, n[0])), n[1] % 2); }},
        {"row", 14, leaves_edits, true,
         [](Monkey& m, N n) {
             m.User().ClickRow(m.List(), static_cast<int32_t>(n[0]) % std::max(m.List().Count(), 1));
         }},
        {"menu", 8, drops, true,
         [](Monkey& m, N n) {
             m.m_script->AnswerMenu(Pick(kCommands, n[0]));
             const int32_t y = n[1] % 2 ? static_cast<int32_t>(n[1] % 128) : -1;
             m.User().ContextMenu(m.List(), {y < 0 ? -1 : 5, y});
         }},
        {"key", 6, drops, true, [](Monkey& m, N n) { m.User().Key(m.List(), Pick(kKeys, n[0])); }},
        {"resize", 1, leaves_edits, true,
         [](Monkey& m, N n) {
             m.m_page.Move({0, 0, static_cast<int32_t>(n[0] % 1500), static_cast<int32_t>(n[1] % 900)});
         }},
        {"select", 3, leaves_edits, false, [](Monkey& m, N) { m.m_page.Select(); }},
        {"deselect", 2, leaves_edits, false, [](Monkey& m, N) { m.m_page.Deselect(); }},
        {"save", 3, leaves_edits, false, [](Monkey& m, N) { m.Save(); }},
        {"api", 2, leaves_edits, false,
         [](Monkey& m, N n) {
             m.m_page.SetApi(n[0] % 4 ? m.m_scanner.api.get() : nullptr);
             m.m_page.SetSettingsObjectMap(m.m_scanner.api.get());
         }},
        {"initialise", 1, leaves_edits, false, [](Monkey& m, N n) { m.Initialise(n[0], n[1]); }},
        {"malformed", 1, leaves_edits, false, [](Monkey& m, N n) { m.InitialiseMalformed(n[0]); }},
        {"reopen", 2, drops, false, [](Monkey& m, N) { m.OpenAnew(); }},
        {"close", 1, drops, false, [](Monkey& m, N) { m.m_page.Close(); }},
        {"bare", 1, drops, false, [](Monkey& m, N) { m.m_foreign = !MakePage(m.m_page) || true; }},
        {"destroy", 1, drops, false,
         [](Monkey& m, N) {
             if (!m.m_frame.Children().empty()) m.m_frame.Children().front()->Destroy();
         }},
        {"cable", 8, leaves_edits, false, [](Monkey& m, N n) { m.MoveCable(n[0]); }},
        {"fault", 10, fault, false,
         [](Monkey& m, N n) {
             m.m_scanner.Fail(s_operations[n[0] % s_operations.size()], Pick(kResults, n[1]),
                              static_cast<int32_t>(n[2] % 12 * (n[2] / 16 % 2)),
                              n[3] % 4 == 0 ? -1 : static_cast<int32_t>(n[3] % 4), n[1] / 16 % 8 == 0);
         }},
    };
    return actions;
}

std::string Monkey::Text(const Step& step) {
    std::string text = Actions()[step.action].name;
    if (Actions()[step.action].kind == Action::Kind::fault && !s_operations.empty()) {
        text += " of " + s_operations[step.numbers[0] % s_operations.size()];
    }
    for (const uint32_t number : step.numbers) text += " " + std::to_string(number);
    return text;
}

std::string Monkey::Do(const Step& step) {
    static constexpr const wchar_t* kTyped[] = {L"new", L"Zoo", L"OWN 1", L"%s (1)", L"", L"@x", L"$FINE"};
    static constexpr uint32_t kButtons[] = {284, IDOK, 284, IDCANCEL, IDOK};
    const Action& action = Actions()[step.action];
    const ui::Dialog* page = m_page.Dialog();
    if (action.needs_window && page == nullptr) return "";
    if (action.kind == Action::Kind::fault) {
        m_fails = true;
        action.run(*this, step.numbers);
        return "";
    }
    const bool had_edits =
        page != nullptr && IsShown(*page) && HasEdits(*page) && !IsTyping(*page) && !m_foreign;
    const Values edits = had_edits ? Shown(*page) : Values();
    const hx::WindowHandle window = page != nullptr ? page->Handle() : 0;

    m_script = std::make_unique<ui::Script>();
    const auto& [first, second, third, fourth] = step.numbers;
    for (uint32_t i = 0; i < third % 4; ++i) {
        ui::Script::Answer answer;
        answer.button = Pick(kButtons, third / 8 + i);
        if (third / 64 % 4 != 0) answer.typed = Pick(kTyped, third / 256 + i);
        m_script->AnswerModal(answer);
    }
    bool interrupted = false;
    const auto interrupt = [&] {
        if (fourth % 8 != 0 || std::exchange(interrupted, true)) return;
        Interrupt(fourth / 8, fourth / 64);
    };
    m_script->while_box = interrupt;
    m_script->while_modal = [&](ui::Dialog&) { interrupt(); };
    m_saved = false;
    m_scanner.Calls();
    action.run(*this, step.numbers);
    // Sometimes the next step comes before the event.
    const bool late = fourth / 1024 % 8 == 0;
    if (!late) m_scanner.Settle();
    m_scanner.hands->ClearFaults();
    const bool asked = !m_script->TakeModals().empty();
    const bool told = !m_script->TakeBoxes().empty();
    m_script.reset();
    const std::string calls = m_scanner.Calls();
    const bool stores = calls.find("SaveDynamicSettingsPresets") != std::string::npos;
    // After a failure the page may know more than the scanner has, until it stores the next time.
    if (m_fails || told) m_trusted = false;
    if (!m_fails && !asked && !told && stores) m_trusted = true;
    const bool failed = std::exchange(m_fails, false);

    if (m_renderer->WaitCursors() != 0) return "a wait cursor is left";
    if (m_renderer->Unscripted() != 0) return "a box came up with nobody there";
    if (stores) {
        const auto stored = m_scanner.Stored();
        for (const auto& [name, profile] : m_predefined) {
            const auto found = stored.find(name);
            if (found == stored.end() || !(found->second.values == profile.values)) {
                return "the predefined profile " + name + " has changed";
            }
        }
    }
    page = m_page.Dialog();
    if (page == nullptr || page->Handle() != window) return "";
    if (std::string wrong = Wrong(*page); !wrong.empty()) return wrong;
    if (m_saved && !interrupted) {
        if (!m_may_close && !asked && !told) return "a refused close that nobody was told of";
        if (m_may_close && !told && IsShown(*page) && HasEdits(*page)) return "a close that would lose edits";
    }
    const bool may_go = action.kind != Action::Kind::leaves_edits || asked || told || m_foreign;
    if (had_edits && !may_go && !(HasEdits(*page) && Shown(*page).IsSame(edits))) {
        const auto stored = m_scanner.Stored();
        const bool kept =
            std::ranges::any_of(stored, [&](const auto& each) { return each.second.values.IsSame(edits); });
        if (!kept)
            return failed ? "edits were lost without a word at a failure" : "edits were lost without a word";
    }
    return "";
}

std::string Monkey::Wrong(const ui::Dialog& page) {
    const auto& list = *page.FindAs<ui::ListBox>(kList);
    if (!list.IsEnabled()) return "the list is disabled";
    if (list.Count() > 0 && list.Selected() < 0) return "no row is selected";
    for (int32_t row = 0; row < list.Count(); ++row) {
        if (row != list.Selected() && Row(page, row).starts_with('*')) return "another row has the mark";
    }
    const bool shown = IsShown(page);
    const auto checked = [&](uint32_t box) { return page.FindAs<ui::CheckBox>(box)->IsChecked(); };
    const struct {
        uint32_t control;
        bool enabled;
    } kRules[] = {{207, shown && !checked(224)},
                  {210, shown && !checked(224)},
                  {204, shown},
                  {206, shown},
                  {218, shown && checked(225)},
                  {219, shown && checked(225)},
                  {214, shown},
                  {217, shown},
                  {212, shown},
                  {224, shown},
                  {225, shown},
                  {253, shown}};
    for (const auto& rule : kRules) {
        if (page.Find(rule.control)->IsEnabled() != rule.enabled) {
            return "the rule of " + std::to_string(rule.control);
        }
    }
    for (size_t i = 0; shown && i < std::size(kSliders); ++i) {
        const ui::Control& edit = *page.Find(kEdits[i]);
        const int32_t position = page.FindAs<ui::TrackBar>(kSliders[i])->Position();
        const std::wstring text = std::to_wstring(i == kExposure ? position / 100 : position);
        // What is being typed may be anything.
        if (!edit.HasFocus() && edit.Text() != text) return "the text in " + std::to_string(kEdits[i]);
    }
    return shown && m_trusted && !m_foreign ? WrongRows(page) : "";
}

std::string Monkey::WrongRows(const ui::Dialog& page) {
    const auto& list = *page.FindAs<ui::ListBox>(kList);
    const auto stored = m_scanner.Stored();
    if (static_cast<size_t>(list.Count()) != stored.size()) return "not the rows that are stored";
    const bool modified = HasEdits(page);
    const std::string display_name = Row(page, list.Selected()).substr(modified ? 1 : 0);
    const auto current = std::ranges::find_if(
        stored, [&](const auto& each) { return each.second.display_name == display_name; });
    if (current == stored.end()) return "the selected row is none that is stored";
    const bool differs = !Shown(page).IsSame(current->second.values);
    if (differs == modified) return "";
    return (modified ? "the mark without an edit" : "the controls do not show what is stored") +
           (" after: " + display_name) + TextOf(Shown(page)) + " instead of" + TextOf(current->second.values);
}

// Nothing may be stuck: a scanner that is there again can be worked with.
std::string Monkey::Revive() {
    m_script = std::make_unique<ui::Script>();
    m_scanner.hands->ClearFaults();
    m_scanner.Settle();
    if (m_foreign || m_page.Dialog() == nullptr) OpenAnew();
    // Also one that could not be told of events.
    m_page.SetApi(m_scanner.api.get());
    m_page.Select();
    m_scanner.hands->Connect();
    m_scanner.Settle();
    if (m_page.Dialog() == nullptr) return "no page";
    m_page.Dialog()->SetFocus(nullptr);
    if (!IsShown(*m_page.Dialog())) return "no profile is shown";
    m_scanner.Calls();
    ui::TrackBar& slider = Slider(kThreshold);
    const int32_t position = slider.Position() == 70 ? 30 : 70;
    m_page.Move({0, 0, 1000, 700});
    User().Drag(slider, position);
    User().Drop(slider);
    User().Type(At<ui::Edit>(kEdits[kExposure]), L"37");
    User().Focus(List());
    // Looking takes the simulated scanner longer than all the rest.
    m_scanner.Fail("DetectExposureTime", E_FAIL, 0, 1, false);
    User().Click(At<ui::Button>(kDetectButton));
    const std::string calls = m_scanner.Calls();
    if (slider.Position() != position || calls.find("ActivateDynamicSettings") == std::string::npos) {
        return "a slider is not followed";
    }
    if (calls.find("DetectExposureTime") == std::string::npos) return "nothing is detected";
    m_script->TakeBoxes();
    User().Key(List(), VK_F2);
    if (m_script->TakeBoxes().empty() && m_script->TakeModals().empty()) return "the menu does nothing";
    m_script->AnswerMenu(32774);
    User().ContextMenu(List(), {-1, -1});
    if (HasEdits(*m_page.Dialog())) return "edits cannot be discarded";
    Save();
    const bool told = !m_script->TakeBoxes().empty();
    m_script.reset();
    m_page.Close();
    return m_may_close && !told ? "" : "it cannot be closed";
}

}  // namespace hosted
