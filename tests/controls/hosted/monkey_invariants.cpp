// What is to be seen of the pages, and what may never be.
#include <algorithm>

#include "platform/system/case_fold.h"
#include "platform/system/utf8.h"
#include "tests/controls/hosted/monkey.h"

namespace hosted {
namespace {

bool IsKnown(const ui::Control& reading) {
    return reading.Text() != L"Unknown (not connected)";
}

std::string TextOf(const Values& values) {
    std::string text;
    for (const double number : values.numbers) text += " " + std::to_string(number);
    for (const bool flag : values.flags) text += flag ? " on" : " off";
    return text + " " + std::to_string(values.gain);
}

}  // namespace

std::string Monkey::Place::Row(int32_t row) const {
    return row < 0 ? "" : hx::ToUtf8(List().RowText(row));
}

bool Monkey::Place::KnowsScanner() const {
    return IsKnown(At<ui::Control>(kind.readings.front()));
}

bool Monkey::Place::IsTyping() const {
    const ui::Control* const focused = Dialog()->Focused();
    return focused != nullptr && focused->Kind() == ui::ControlKind::edit;
}

std::string Monkey::Place::State() const {
    if (!page.IsCreated()) return "closed";
    if (Dialog() == nullptr) return "no window";
    if (!EditsProfiles()) return "open";
    return SelectedRow() + TextOf(Shown()) + (IsShown() ? "" : " disabled") + (fresh ? " fresh" : "");
}

const Profile* Monkey::StoredAs(const std::string& row) const {
    const std::string display_name = row.substr(row.starts_with('*') ? 1 : 0);
    const auto found = std::ranges::find_if(
        m_stored, [&](const auto& each) { return each.second.display_name == display_name; });
    return found != m_stored.end() ? &found->second : nullptr;
}

Monkey::Before Monkey::BeforeStep(const Place& place) const {
    Before before;
    if (place.Dialog() == nullptr) return before;
    before.window = place.Dialog()->Handle();
    if (!place.EditsProfiles()) return before;
    before.row = place.SelectedRow();
    const bool counts = !place.foreign && !m_foreign && place.IsShown() && !place.IsTyping();
    if (counts && place.HasEdits()) before.edits = place.Shown();
    return before;
}

void Monkey::Judge(const Action& action, Place& actor, const Before& before, const Outcome& outcome) {
    bool changed = false;
    if (outcome.stores) {
        auto stored = m_scanner.Stored();
        changed = stored != m_stored;
        m_stored = std::move(stored);
    }
    const bool clean = outcome.IsClean();
    const bool agreed = m_agrees;
    m_agrees = clean && (outcome.stores || m_agrees);
    using enum Action::Kind;
    const bool may_store = action.kind == stores || action.kind == drops;
    for (Place& place : m_places) {
        const bool acts = &place == &actor;
        // After a failure a page may know more than the scanner has.
        if (outcome.failed || outcome.told || (outcome.asked && acts)) place.fresh = false;
        // It may have been set up anew with what is not stored.
        if (!agreed && outcome.stores) place.fresh = false;
        if (changed && !(acts && may_store)) place.fresh = false;
        if (!place.EditsProfiles() || place.IsWithoutRow()) continue;
        place.edited = place.HasEdits() ? place.SelectedRow().substr(1) : "";
    }
    if (!clean || !outcome.stores || action.kind != stores || !actor.EditsProfiles()) return;
    if (actor.saved || actor.SelectedRow() != before.row) actor.fresh = true;
}

std::string Monkey::DamagedPredefined() const {
    for (const auto& [name, profile] : m_predefined) {
        const auto found = m_stored.find(name);
        if (found == m_stored.end() || !(found->second.values == profile.values)) {
            return "the predefined profile " + name + " has changed";
        }
    }
    return "";
}

std::string Monkey::LostEdits(const Place& place, const Before& before, bool may_go,
                              const Outcome& outcome) const {
    if (!before.edits || may_go) return "";
    if (place.HasEdits() && place.Shown().IsSame(*before.edits)) {
        const bool same = before.row.empty() || place.IsWithoutRow() || place.SelectedRow() == before.row;
        return same ? "" : "edits became those of another profile";
    }
    const bool kept = std::ranges::any_of(m_stored, [&](const auto& each) {
        return place.kind.Seen(each.second.values).IsSame(*before.edits);
    });
    if (kept) return "";
    return outcome.failed ? "edits were lost without a word at a failure" : "edits were lost without a word";
}

std::string Monkey::Wrong(const Place& place) const {
    if (place.Dialog() == nullptr) return "";
    if (!place.EditsProfiles()) return WrongReadings(place);
    const ui::ListBox& list = place.List();
    if (!list.IsEnabled()) return "the list is disabled";
    if (place.IsWithoutRow() && place.edited.empty()) return "no row is selected";
    for (int32_t row = 0; row < list.Count(); ++row) {
        if (row != list.Selected() && place.Row(row).starts_with('*')) return "another row has the mark";
    }
    std::string wrong = WrongRules(place);
    const bool counts = place.IsShown() && place.fresh && m_agrees && !place.foreign && !m_foreign;
    return wrong.empty() && counts ? WrongRows(place) : wrong;
}

std::string Monkey::WrongRules(const Place& place) const {
    const bool shown = place.IsShown();
    const auto checked = [&](uint32_t box) { return place.At<ui::CheckBox>(box).IsChecked(); };
    for (const EnableRow& rule : place.kind.rules) {
        using enum EnableRow::Needs;
        const bool enabled = shown && (rule.needs != kPowerByHand || !checked(kBoxes[0])) &&
                             (rule.needs != k3DFilter || checked(kBoxes[1]));
        if (place.At<ui::Control>(rule.control).IsEnabled() != enabled) {
            return "the rule of " + std::to_string(rule.control);
        }
    }
    const Values values = place.Shown();
    for (size_t i = 0; shown && i < values.numbers.size(); ++i) {
        const NumberControls& controls = place.kind.numbers[i];
        if (controls.slider == 0) continue;
        const ui::Control& edit = place.At<ui::Control>(controls.edit);
        const auto number = static_cast<int32_t>(values.numbers[i]) / controls.per_edit;
        // What is being typed may be anything.
        if (!edit.HasFocus() && edit.Text() != std::to_wstring(number)) {
            return "the text in " + std::to_string(controls.edit);
        }
    }
    return "";
}

std::string Monkey::WrongRows(const Place& place) const {
    if (static_cast<size_t>(place.List().Count()) != m_stored.size()) return "not the rows that are stored";
    const Profile* const current = StoredAs(place.SelectedRow());
    if (current == nullptr) return "the selected row is none that is stored";
    const bool modified = place.HasEdits();
    const Values stored = place.kind.Seen(current->values);
    const bool differs = !place.Shown().IsSame(stored);
    if (differs == modified) return "";
    // What a page cannot show it may have changed.
    if (modified && place.kind.threshold_list != 0) return "";
    return (modified ? "the mark without an edit" : "the controls do not show what is stored") +
           (" after: " + place.SelectedRow()) + TextOf(place.Shown()) + " instead of" + TextOf(stored);
}

// Where all is well: a predefined profile is always there, and one of the operator's is stored again unless
// another one's name differs in its case alone.
bool Monkey::MayBeWithoutRow(const Place& place) const {
    const std::wstring folded = hx::FoldCase(*hx::FromUtf8(place.edited));
    return std::ranges::any_of(m_stored, [&](const auto& each) {
        return each.first != place.edited && hx::FoldCase(*hx::FromUtf8(each.first)) == folded;
    });
}

// They are known all together, or none is.
std::string Monkey::WrongReadings(const Place& place) const {
    const bool same = std::ranges::all_of(place.kind.readings, [&](uint32_t id) {
        return IsKnown(place.At<ui::Control>(id)) == place.KnowsScanner();
    });
    return same ? "" : "only some of what the scanner tells is known";
}

}  // namespace hosted
