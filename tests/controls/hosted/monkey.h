// Somebody who does anything to all pages of a host at once, as an operator, the host, a cable and a failing
// scanner may, and sees whether what can be seen from outside is what it may be. Used by the test that runs
// it.
//
// The pages share their profiles. So what holds for each of them is:
// - its edits stay, whatever is done to other pages, also when another page removes or renames the profile;
// - the row that is selected is that of the profile that is edited, or none where that can have no row;
// - predefined profiles stay as they are;
// - it shows what is stored when it was set up last, or has loaded or stored a profile since; until then what
//   other pages store is not to be seen, and its own edits are compared with what it knows.
// Two pages may have edits of one profile: whoever stores last is right.
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/controls/hosted/page_kinds.h"

namespace hosted {

namespace ui = hx::ui;

struct Step {
    size_t action = 0;
    uint32_t place = 0;
    std::array<uint32_t, 4> numbers{};
};
using Steps = std::vector<Step>;

template <class Rows>
auto& Pick(Rows& rows, uint32_t number) {
    return rows[number % std::size(rows)];
}

class Monkey {
public:
    struct Action;
    static const std::vector<Action>& Actions();
    static std::string Text(const Step& step);

    Monkey(const std::shared_ptr<ui::HeadlessRenderer>& renderer, uint32_t choice);

    // What is wrong afterwards; "" if nothing is.
    std::string Run(const Steps& steps, bool trace);

private:
    // Of a page in the host.
    struct Place {
        const PageKind& kind;
        hosting::HostedPage page{};
        const Scanner* scanner = nullptr;  // whose API it has
        bool fresh = false;                // it shows what is stored
        std::string edited;                // the profile that had edits when a row was last selected
        bool foreign = false;              // it was not told what to edit
        bool saved = false;                // the host has asked in this step
        bool may_close = false;

        ui::Dialog* Dialog() const { return page.Dialog(); }
        // A profile can be edited there.
        bool EditsProfiles() const { return kind.EditsProfiles() && Dialog() != nullptr; }
        bool IsShown() const { return EditsProfiles() && Dialog()->Find(kExposureSlider)->IsEnabled(); }
        ui::ListBox& List() const { return At<ui::ListBox>(kList); }
        // Of a page that shows what the scanner tells of itself.
        bool KnowsScanner() const;
        // With the mark for edits.
        std::string Row(int32_t row) const;
        std::string SelectedRow() const { return Row(List().Selected()); }
        bool HasEdits() const { return IsWithoutRow() || SelectedRow().starts_with('*'); }
        // There are edits of a profile that is gone.
        bool IsWithoutRow() const { return List().Count() > 0 && List().Selected() < 0; }
        // The text of an edit that is left may become another number.
        bool IsTyping() const;
        Values Shown() const { return kind.Shown(*Dialog()); }
        std::string State() const;
        template <class T>
        T& At(uint32_t id) const {
            return *Dialog()->FindAs<T>(id);
        }
    };
    // Of a place before a step.
    struct Before {
        hx::WindowHandle window = 0;
        std::string row;  // the selected one
        std::optional<Values> edits;
    };
    // What came of a step.
    struct Outcome {
        bool failed = false;  // the scanner, on demand
        bool asked = false;
        bool told = false;
        bool stores = false;
        const Place* interrupted = nullptr;

        bool IsClean() const { return !failed && !asked && !told; }
    };

    Place& PlaceOf(const Action& action, uint32_t number);
    std::string Do(const Step& step);
    void Prepare(const Step& step, Place& place, Outcome& outcome);
    void Interrupt(Place& place, uint32_t what, uint32_t number);

    Before BeforeStep(const Place& place) const;
    // Who still shows what is stored.
    void Judge(const Action& action, Place& actor, const Before& before, const Outcome& outcome);
    std::string Wrong(const Place& place) const;
    std::string WrongRules(const Place& place) const;
    std::string WrongRows(const Place& place) const;
    bool MayBeWithoutRow(const Place& place) const;
    std::string WrongReadings(const Place& place) const;
    std::string LostEdits(const Place& place, const Before& before, bool may_go,
                          const Outcome& outcome) const;
    std::string DamagedPredefined() const;

    std::string Agree();
    std::string Revive();
    std::string Work(Place& place);
    // In any order.
    void CloseAll();

    void OpenAnew(Place& place);
    void Open(Place& place);
    void Turn(Place& place, bool alone);
    void Initialise(Place& place, uint32_t profile, uint32_t names);
    void InitialiseMalformed(Place& place, uint32_t number);
    void Save(Place& place);
    void MoveCable(const Scanner& scanner, uint32_t how);
    void Settle() const;
    ui::IUser& User() { return m_renderer->User(); }
    Profile const* StoredAs(const std::string& row) const;

    const std::shared_ptr<ui::HeadlessRenderer> m_renderer;
    const uint32_t m_choice;
    const Scanner m_scanner;
    const Scanner m_second;  // the same on another API
    std::map<std::string, Profile> m_stored;
    const std::map<std::string, Profile> m_predefined;
    inline static std::vector<std::string> s_operations;  // that can fail
    Frame m_frame;
    std::deque<Place> m_places;
    std::unique_ptr<ui::Script> m_script;  // the step's
    bool m_agrees = true;                  // what the pages have in common is what is stored
    bool m_foreign = false;                // that is of another scanner, or only there for a while
    bool m_fails = false;                  // the scanner, in this step
};

struct Monkey::Action {
    enum class Kind { leaves_edits, edits, stores, drops, cable, fault };
    enum class Where { anywhere, window, profiles };
    const char* name;
    uint32_t weight;
    Kind kind;
    Where where;
    void (*run)(Monkey& monkey, Place& place, const std::array<uint32_t, 4>& numbers);
};

}  // namespace hosted
