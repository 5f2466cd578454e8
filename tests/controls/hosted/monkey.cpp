#include "tests/controls/hosted/monkey.h"

#include <algorithm>
#include <iostream>

#include "platform/com/text_array.h"
#include "platform/system/utf8.h"
#include "platform/ui/codes.h"

namespace hosted {
namespace {

constexpr const char* kModels[] = {"HX", "KT05FxR3PA", "T820"};

}  // namespace

Monkey::Monkey(const std::shared_ptr<ui::HeadlessRenderer>& renderer, uint32_t choice)
    : m_renderer(renderer),
      m_choice(choice),
      m_scanner(Pick(kModels, choice)),
      m_second(m_scanner),
      m_stored(m_scanner.Stored()),
      m_predefined([this] {
          std::map<std::string, Profile> profiles = m_stored;
          std::erase_if(profiles, [](const auto& each) { return !each.first.starts_with('$'); });
          return profiles;
      }()) {
    for (const PageKind& kind : PageKinds()) Open(m_places.emplace_back(kind));
    if (!s_operations.empty()) return;
    hx::SafeArray names;
    m_scanner.hands->GetOperations(names.put());
    const auto operations = hx::TextsOf(names.get());
    for (const std::wstring& name : *operations) {
        s_operations.push_back(hx::ToUtf8(name.substr(name.find(L'.') + 1)));
    }
}

std::string Monkey::Run(const Steps& steps, bool trace) {
    for (const Step& step : steps) {
        if (trace) std::cerr << "    " << Text(step) << std::endl;
        std::string wrong = Do(step);
        for (const Place& place : m_places) {
            if (trace) std::cerr << "      " << place.kind.name << ": " << place.State() << std::endl;
        }
        if (!wrong.empty()) return wrong + " after " + Text(step);
    }
    std::string wrong = Revive();
    CloseAll();
    return wrong.empty() ? "" : wrong + " at the end";
}

// Somebody to answer what is asked, and what may come meanwhile.
void Monkey::Prepare(const Step& step, Place& place, Outcome& outcome) {
    static constexpr const wchar_t* kTyped[] = {L"new", L"Zoo", L"OWN 1", L"%s (1)", L"", L"@x", L"$FINE"};
    static constexpr uint32_t kButtons[] = {284, IDOK, 284, IDCANCEL, IDOK};
    m_script = std::make_unique<ui::Script>();
    const uint32_t third = step.numbers[2], fourth = step.numbers[3];
    for (uint32_t i = 0; i < third % 4; ++i) {
        ui::Script::Answer answer;
        answer.button = Pick(kButtons, third / 8 + i);
        if (third / 64 % 4 != 0) answer.typed = Pick(kTyped, third / 256 + i);
        m_script->AnswerModal(answer);
    }
    if (fourth % 8 != 0) return;
    Place& disturbed = fourth / 512 % 2 == 0 ? place : Pick(m_places, fourth / 8192);
    const auto interrupt = [this, fourth, &disturbed, &outcome] {
        if (std::exchange(outcome.interrupted, &disturbed) != nullptr) return;
        Interrupt(disturbed, fourth / 8, fourth / 64);
    };
    m_script->while_box = interrupt;
    m_script->while_modal = [interrupt](ui::Dialog&) { interrupt(); };
}

std::string Monkey::Do(const Step& step) {
    using enum Action::Kind;
    using enum Action::Where;
    const Action& action = Actions()[step.action];
    Place& actor = PlaceOf(action, step.place);
    if (action.where != anywhere && actor.Dialog() == nullptr) return "";
    if (action.kind == fault) return action.run(*this, actor, step.numbers), "";

    std::vector<Before> before;
    for (Place& place : m_places) {
        before.push_back(BeforeStep(place));
        place.saved = false;
    }
    const auto at = static_cast<size_t>(
        std::ranges::find(m_places, &actor, [](const Place& each) { return &each; }) - m_places.begin());
    Outcome outcome;
    Prepare(step, actor, outcome);
    m_scanner.Calls();
    action.run(*this, actor, step.numbers);
    // Sometimes the next step comes before the event.
    if (step.numbers[3] / 1024 % 8 != 0) Settle();
    m_scanner.hands->ClearFaults();
    outcome.asked = !m_script->TakeModals().empty();
    outcome.told = !m_script->TakeBoxes().empty();
    outcome.failed = std::exchange(m_fails, false);
    m_script.reset();
    outcome.stores = m_scanner.Calls().find("SaveDynamicSettingsPresets") != std::string::npos;
    Judge(action, actor, before[at], outcome);

    if (m_renderer->WaitCursors() != 0) return "a wait cursor is left";
    if (m_renderer->Unscripted() != 0) return "a box came up with nobody there";
    if (std::string wrong = DamagedPredefined(); !wrong.empty()) return wrong;
    for (size_t i = 0; i < m_places.size(); ++i) {
        const Place& place = m_places[i];
        const auto say = [&](const std::string& wrong) {
            return std::string(place.kind.name) + ": " + wrong;
        };
        const ui::Dialog* const dialog = place.Dialog();
        if (dialog == nullptr || dialog->Handle() != before[i].window) continue;
        if (std::string wrong = Wrong(place); !wrong.empty()) return say(wrong);
        if (!place.EditsProfiles()) continue;
        if (place.saved && outcome.interrupted == nullptr) {
            const bool silent = !outcome.asked && !outcome.told;
            if (!place.may_close && silent) return say("a refused close that nobody was told of");
            if (place.may_close && !outcome.told && place.IsShown() && place.HasEdits()) {
                return say("a close that would lose edits");
            }
        }
        const bool acts = i == at || outcome.interrupted == &place;
        const bool may_go = outcome.told || m_foreign ||
                            (acts && (outcome.asked || action.kind == edits || action.kind == drops));
        if (std::string wrong = LostEdits(place, before[i], may_go, outcome); !wrong.empty())
            return say(wrong);
    }
    return "";
}

// All pages have one scanner, which is connected anew: each shows what is stored, whoever stored it.
std::string Monkey::Agree() {
    if (m_foreign) OpenAnew(m_places.front());
    for (Place& place : m_places) {
        if (place.Dialog() == nullptr || place.foreign) OpenAnew(place);
        // Also one that could not be told of events.
        place.scanner = &m_scanner;
        place.page.SetApi(m_scanner.api.get());
        place.page.Select();
    }
    m_scanner.hands->Disconnect();
    Settle();
    m_scanner.hands->Connect();
    Settle();
    m_stored = m_scanner.Stored();
    m_agrees = true;
    for (Place& place : m_places) {
        if (place.Dialog() == nullptr) return std::string("no page of ") + place.kind.name;
        place.fresh = !place.EditsProfiles() || !place.IsWithoutRow();
        if (!place.fresh && !MayBeWithoutRow(place)) return place.kind.name + std::string(": no row");
        if (place.EditsProfiles() && !place.IsShown()) return place.kind.name + std::string(": no profile");
        if (!place.EditsProfiles() && !place.KnowsScanner()) return "nothing is known of the scanner";
        if (std::string wrong = Wrong(place); !wrong.empty()) return place.kind.name + (": " + wrong);
    }
    return DamagedPredefined();
}

// Nothing may be stuck: a scanner that is there again can be worked with.
std::string Monkey::Revive() {
    m_script = std::make_unique<ui::Script>();
    m_scanner.hands->ClearFaults();
    Settle();
    std::string wrong = Agree();
    for (Place& place : m_places) {
        if (!wrong.empty()) break;
        if (place.EditsProfiles()) wrong = Work(place);
        if (!wrong.empty()) wrong = place.kind.name + (": " + wrong);
    }
    // What one has stored the others show.
    if (wrong.empty()) wrong = Agree();
    m_script.reset();
    return wrong;
}

std::string Monkey::Work(Place& place) {
    Turn(place, true);
    place.Dialog()->SetFocus(nullptr);
    m_scanner.Calls();
    auto& slider = place.At<ui::TrackBar>(kExposureSlider);
    const int32_t position = slider.Position() == 7000 ? 3000 : 7000;
    place.page.Move({0, 0, 1000, 700});
    User().Drag(slider, position);
    User().Drop(slider);
    if (slider.Position() != position ||
        m_scanner.Calls().find("ActivateDynamicSettings") == std::string::npos) {
        return "a slider is not followed";
    }
    User().Type(place.At<ui::Edit>(kExposureEdit), L"37");
    User().Focus(place.List());
    // Looking takes the simulated scanner longer than all the rest.
    m_scanner.Fail("DetectExposureTime", E_FAIL, 0, 1, false);
    User().Click(place.At<ui::Button>(kDetectButton));
    if (m_scanner.Calls().find("DetectExposureTime") == std::string::npos) return "nothing is detected";
    m_script->TakeBoxes();
    // Edits of a profile that cannot be stored again have no row, and so no menu, until they are left.
    if (place.List().Selected() < 0) return "";
    User().Key(place.List(), VK_F2);
    if (m_script->TakeBoxes().empty() && m_script->TakeModals().empty()) return "the menu does nothing";
    m_script->AnswerMenu(32774);
    User().ContextMenu(place.List(), {-1, -1});
    if (place.HasEdits()) return "edits cannot be discarded";
    Save(place);
    const bool told = !m_script->TakeBoxes().empty();
    return place.may_close && !told ? "" : "it cannot be closed";
}

void Monkey::CloseAll() {
    const uint32_t first = m_choice / 8, direction = m_choice / 64 % 2 + 1;
    for (uint32_t i = 0; i < m_places.size(); ++i) Pick(m_places, first + i * direction).page.Close();
    Settle();
}

}  // namespace hosted
