// What is done to the pages.
#include <algorithm>

#include "platform/ui/codes.h"
#include "tests/controls/hosted/monkey.h"

namespace hosted {

const std::vector<Monkey::Action>& Monkey::Actions() {
    using enum Action::Kind;
    using enum Action::Where;
    using N = const std::array<uint32_t, 4>&;
    static constexpr const wchar_t* kTyped[] = {L"",   L"0",    L"1",  L"37",          L"90", L"100", L"101",
                                                L"-5", L"12.7", L"x9", L"99999999999", L" 7", L"\t-"};
    static constexpr uint32_t kKeys[] = {VK_F2, VK_DELETE, VK_UP, VK_DOWN, VK_HOME, VK_END, VK_BACK, VK_TAB};
    static constexpr uint32_t kCommands[] = {32771, 32772, 32773, 32773, 32774, 0};
    static constexpr HRESULT kResults[] = {E_FAIL, E_OUTOFMEMORY, E_ACCESSDENIED, HRESULT(0x80040201)};
    static constexpr uint32_t kCodes[] = {TB_LINEUP, TB_LINEDOWN, TB_PAGEUP, TB_PAGEDOWN, TB_TOP, TB_BOTTOM};
    static const auto slider = [](const Place& p, uint32_t number) {
        const NumberControls* controls = nullptr;
        do controls = &Pick(p.kind.numbers, number++);
        while (controls->slider == 0);
        return *controls;
    };
    static const std::vector<Action> actions = {
        {"drag", 12, edits, profiles,
         [](Monkey& m, Place& p, N n) {
             auto& moved = p.At<ui::TrackBar>(slider(p, n[0]).slider);
             m.User().Drag(moved, static_cast<int32_t>(n[1] % static_cast<uint32_t>(moved.Maximum() + 2)));
         }},
        {"drop", 8, edits, profiles,
         [](Monkey& m, Place& p, N n) { m.User().Drop(p.At<ui::TrackBar>(slider(p, n[0]).slider)); }},
        {"scroll", 8, edits, profiles,
         [](Monkey& m, Place& p, N n) {
             m.User().Scroll(p.At<ui::TrackBar>(slider(p, n[0]).slider), Pick(kCodes, n[1]));
         }},
        {"type", 10, edits, profiles,
         [](Monkey& m, Place& p, N n) {
             m.User().Type(p.At<ui::Edit>(slider(p, n[0]).edit), Pick(kTyped, n[1]));
         }},
        {"leave", 5, edits, profiles,
         [](Monkey& m, Place& p, N n) { m.User().Focus(p.At<ui::Control>(slider(p, n[0]).edit)); }},
        {"box", 6, edits, profiles,
         [](Monkey& m, Place& p, N n) {
             const size_t which = n[0] % (std::size(kBoxes) + p.kind.other_boxes.size());
             const uint32_t box =
                 which < std::size(kBoxes) ? kBoxes[which] : p.kind.other_boxes[which - std::size(kBoxes)];
             m.User().Click(p.At<ui::CheckBox>(box));
         }},
        {"choose", 4, edits, profiles,
         [](Monkey& m, Place& p, N n) {
             const bool gain = p.kind.threshold_list == 0 || n[1] % 2 != 0;
             m.User().Choose(p.At<ui::ComboBox>(gain ? kGainList : p.kind.threshold_list),
                             static_cast<int32_t>(n[0] % 6));
         }},
        {"detect", 1, edits, profiles,
         [](Monkey& m, Place& p, N) { m.User().Click(p.At<ui::Button>(kDetectButton)); }},
        {"view", 2, leaves_edits, profiles,
         [](Monkey& m, Place& p, N n) {
             m.User().Scroll(p.At<ui::TrackBar>(Pick(p.kind.other_sliders, n[0])), n[1] % 2);
         }},
        {"row", 14, stores, profiles,
         [](Monkey& m, Place& p, N n) {
             m.User().ClickRow(p.List(), static_cast<int32_t>(n[0]) % std::max(p.List().Count(), 1));
         }},
        {"menu", 8, drops, profiles,
         [](Monkey& m, Place& p, N n) {
             m.m_script->AnswerMenu(Pick(kCommands, n[0]));
             const int32_t y = n[1] % 2 ? static_cast<int32_t>(n[1] % 128) : -1;
             m.User().ContextMenu(p.List(), {y < 0 ? -1 : 5, y});
         }},
        {"key", 6, drops, profiles,
         [](Monkey& m, Place& p, N n) { m.User().Key(p.List(), Pick(kKeys, n[0])); }},
        {"resize", 1, leaves_edits, window,
         [](Monkey&, Place& p, N n) {
             p.page.Move({0, 0, static_cast<int32_t>(n[0] % 1500), static_cast<int32_t>(n[1] % 900)});
         }},
        {"turn", 5, leaves_edits, anywhere, [](Monkey& m, Place& p, N n) { m.Turn(p, n[0] % 4 != 0); }},
        {"select", 3, leaves_edits, anywhere, [](Monkey&, Place& p, N) { p.page.Select(); }},
        {"deselect", 2, leaves_edits, anywhere, [](Monkey&, Place& p, N) { p.page.Deselect(); }},
        {"save", 3, stores, anywhere, [](Monkey& m, Place& p, N) { m.Save(p); }},
        {"api", 2, leaves_edits, anywhere,
         [](Monkey& m, Place& p, N n) {
             p.scanner = n[1] % 4 ? &m.m_scanner : &m.m_second;
             p.page.SetApi(n[0] % 4 ? p.scanner->api.get() : nullptr);
             p.page.SetSettingsObjectMap(p.scanner->api.get());
         }},
        {"initialise", 1, leaves_edits, anywhere,
         [](Monkey& m, Place& p, N n) { m.Initialise(p, n[0], n[1]); }},
        {"malformed", 1, leaves_edits, anywhere,
         [](Monkey& m, Place& p, N n) { m.InitialiseMalformed(p, n[0]); }},
        {"reopen", 4, drops, anywhere, [](Monkey& m, Place& p, N) { m.OpenAnew(p); }},
        {"close", 2, drops, anywhere, [](Monkey&, Place& p, N) { p.page.Close(); }},
        {"bare", 1, drops, anywhere,
         [](Monkey& m, Place& p, N) {
             p.foreign = p.page.Create(p.kind.prog_id).IsDone() && p.kind.EditsProfiles();
             // A page that knows no scanner finds no profiles, and that for all.
             m.m_foreign = m.m_foreign || p.foreign;
         }},
        {"destroy", 1, drops, window, [](Monkey&, Place& p, N) { p.Dialog()->Parent()->Destroy(); }},
        {"cable", 9, cable, anywhere, [](Monkey& m, Place& p, N n) { m.MoveCable(*p.scanner, n[0]); }},
        {"fault", 10, fault, anywhere,
         [](Monkey& m, Place&, N n) {
             m.m_fails = true;
             m.m_scanner.Fail(s_operations[n[0] % s_operations.size()], Pick(kResults, n[1]),
                              static_cast<int32_t>(n[2] % 12 * (n[2] / 16 % 2)),
                              n[3] % 4 == 0 ? -1 : static_cast<int32_t>(n[3] % 4), n[1] / 16 % 8 == 0);
         }},
    };
    return actions;
}

std::string Monkey::Text(const Step& step) {
    const Action& action = Actions()[step.action];
    std::string text = std::to_string(step.place) + " " + action.name;
    if (action.kind == Action::Kind::fault && !s_operations.empty()) {
        text += " of " + s_operations[step.numbers[0] % s_operations.size()];
    }
    for (const uint32_t number : step.numbers) text += " " + std::to_string(number);
    return text;
}

// What only settings pages have is not done to others.
Monkey::Place& Monkey::PlaceOf(const Action& action, uint32_t number) {
    Place* place = &Pick(m_places, number);
    while (action.where == Action::Where::profiles && !place->kind.EditsProfiles()) {
        place = &Pick(m_places, ++number);
    }
    return *place;
}

void Monkey::OpenAnew(Place& place) {
    place.page.Close();
    if (!m_foreign) return Open(place);
    // What the others have in common with it can only be mended when all are gone.
    for (Place& each : m_places) each.page.Close();
    m_foreign = false;
    m_agrees = true;
    for (Place& each : m_places) Open(each);
}

void Monkey::Open(Place& place) {
    place.scanner = &m_scanner;
    place.fresh = OpenPage(place.page, place.kind, m_frame, m_scanner, L"Own 1");
    place.foreign = !place.fresh;
    place.edited.clear();
    m_foreign = m_foreign || !place.fresh;
}

// As a host does that shows one page at a time; or one beside the others.
void Monkey::Turn(Place& place, bool alone) {
    if (place.Dialog() == nullptr) OpenAnew(place);
    for (Place& each : m_places) {
        if (!alone || &each == &place) continue;
        each.page.Deselect();
        each.page.Show(false);
    }
    place.page.Show(true);
    place.page.Select();
}

void Monkey::Initialise(Place& place, uint32_t profile, uint32_t names) {
    static constexpr const wchar_t* kNames[] = {L"Own 1", L"$DEFAULT", L"Own 2", L"own 3", L"", L"none"};
    // The last ones are another scanner's, and profiles that are only there for a while.
    const bool custom = names % 16 == 14, other = names % 16 == 15;
    if (place.page.IsCreated() && place.kind.EditsProfiles() && (custom || other)) m_foreign = true;
    place.page.Initialise(m_scanner.driver, other ? L"other" : m_scanner.device, L"",
                          hosting::HostedPage::ArgumentsOf(custom ? L"$CUSTOM" : Pick(kNames, profile)));
}

void Monkey::InitialiseMalformed(Place& place, uint32_t number) {
    hx::SafeArray array;
    if (number % 4 != 0) {
        array.attach(SafeArrayCreateVector(number % 4 == 1 ? VT_BSTR : VT_VARIANT, 3, number % 4 == 2));
    }
    place.page.Initialise(m_scanner.driver, m_scanner.device, L"", std::move(array));
}

void Monkey::Save(Place& place) {
    place.may_close = false;
    place.page.Save(place.may_close);
    place.saved = true;
}

void Monkey::MoveCable(const Scanner& scanner, uint32_t how) {
    static constexpr int32_t kStates[] = {0, 1, 2, 1, 0, 7, -1};
    if (how % 16 < 6) scanner.hands->Connect();
    if (how % 16 == 6) scanner.hands->Disconnect();
    if (how % 16 > 6) scanner.hands->SetConnectionState(Pick(kStates, how / 16), how % 16 != 7);
    // Thus whoever dispatches next finds them.
    scanner.hands->WaitForEvents();
}

void Monkey::Settle() const {
    m_second.hands->WaitForEvents();
    m_scanner.Settle();
}

// What may come while a question or a message is on the screen.
void Monkey::Interrupt(Place& place, uint32_t what, uint32_t number) {
    switch (what % 8) {
        case 0:
            return place.page.Select(), void();
        case 1:
            return place.page.Deselect(), void();
        case 2:
            return Save(place);
        case 3:
            return place.page.SetApi(place.scanner->api.get()), void();
        case 4:
            return place.page.Close();
        case 5:
            return Initialise(place, number, number / 16);
        case 6:
            return Turn(place, true);
        default:
            return MoveCable(*place.scanner, number), Settle();
    }
}

}  // namespace hosted
