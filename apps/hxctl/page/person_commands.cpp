// What a person does to the controls of a page; what a person could not do is refused, with the reason.
#include <algorithm>
#include <iterator>

#include "apps/hxctl/page/control_report.h"
#include "apps/hxctl/page/page_host.h"
#include "apps/hxctl/page/person.h"
#include "apps/hxctl/page/script_command.h"
#include "platform/ui/codes.h"
#include "platform/ui/renderer.h"
#include "platform/ui/user.h"

namespace hxctl {
namespace {

hx::ui::Control& ControlOf(const PageHost& host, const Word& id) {
    return host.Control(static_cast<uint32_t>(NumberOf(id, "the id of a control")));
}

template <class T>
T& As(hx::ui::Control& control, const char* kind) {
    auto* const wanted = dynamic_cast<T*>(&control);
    if (!wanted) throw Impossible("control " + IdText(control.Id()) + " is no " + kind);
    return *wanted;
}

hx::ui::TrackBar& TrackBarOf(const PageHost& host, const Word& id) {
    return As<hx::ui::TrackBar>(ControlOf(host, id), "track bar");
}

int32_t PositionOf(const hx::ui::TrackBar& track_bar, const Word& word) {
    const int32_t position = NumberOf(word, "a position");
    if (position < track_bar.Minimum() || position > track_bar.Maximum()) {
        throw Impossible("position " + word.text + " is not in " + std::to_string(track_bar.Minimum()) +
                         " to " + std::to_string(track_bar.Maximum()));
    }
    return position;
}

void SetTrackBar(hx::ui::TrackBar& track_bar, const Word& value) {
    CheckDone(hx::ui::SetTrackBar(Person(), track_bar, PositionOf(track_bar, value)), track_bar);
}

void SetCheckBox(hx::ui::CheckBox& check_box, const Word& value) {
    if (value.text != "0" && value.text != "1") throw WrongLine(value, "a check box is set to 0 or 1");
    CheckUsable(check_box);
    if (check_box.IsChecked() != (value.text == "1")) CheckDone(Person().Click(check_box), check_box);
}

void SetComboBox(hx::ui::ComboBox& combo_box, const Word& value) {
    const int32_t index = NumberOf(value, "the row of a combo box");
    CheckUsable(combo_box);
    if (index < 0 || static_cast<size_t>(index) >= combo_box.Items().size()) {
        throw Impossible("the list has " + std::to_string(combo_box.Items().size()) + " rows, from 0");
    }
    CheckDone(Person().Choose(combo_box, index), combo_box);
}

void SetEdit(hx::ui::Edit& edit, const Word& value) {
    CheckDone(Person().Type(edit, WideOf(value)), edit);
    // Unless the page took the focus away.
    if (edit.HasFocus()) CheckDone(Person().Leave(edit), edit);
}

void Set(PageHost& host, Words& words, Json&) {
    hx::ui::Control& control = ControlOf(host, words[0]);
    if (auto* const track_bar = dynamic_cast<hx::ui::TrackBar*>(&control)) {
        return SetTrackBar(*track_bar, words[1]);
    }
    if (auto* const check_box = dynamic_cast<hx::ui::CheckBox*>(&control)) {
        return SetCheckBox(*check_box, words[1]);
    }
    if (auto* const combo_box = dynamic_cast<hx::ui::ComboBox*>(&control)) {
        return SetComboBox(*combo_box, words[1]);
    }
    SetEdit(As<hx::ui::Edit>(control, "track bar, check box, combo box or edit"), words[1]);
}

void Drag(PageHost& host, Words& words, Json&) {
    hx::ui::TrackBar& track_bar = TrackBarOf(host, words[0]);
    CheckDone(Person().Drag(track_bar, PositionOf(track_bar, words[1])), track_bar);
}

void Drop(PageHost& host, Words& words, Json&) {
    hx::ui::TrackBar& track_bar = TrackBarOf(host, words[0]);
    if (!Person().Drop(track_bar)) throw Impossible("control " + words[0].text + " is not being dragged");
}

struct ScrollCode {
    const char* name;
    uint32_t code;
};
constexpr ScrollCode kScrollCodes[] = {
    {"TB_LINEUP", TB_LINEUP},
    {"TB_LINEDOWN", TB_LINEDOWN},
    {"TB_PAGEUP", TB_PAGEUP},
    {"TB_PAGEDOWN", TB_PAGEDOWN},
    {"TB_TOP", TB_TOP},
    {"TB_BOTTOM", TB_BOTTOM},
    {"TB_THUMBPOSITION", TB_THUMBPOSITION},
};

// By name, with "TB_" in front or without, or by number. The thumb may also be put where it is.
void Scroll(PageHost& host, Words& words, Json&) {
    hx::ui::TrackBar& track_bar = TrackBarOf(host, words[0]);
    const auto found = std::ranges::find_if(kScrollCodes, [&](const ScrollCode& each) {
        return words[1].text == each.name || words[1].text == each.name + 3 ||
               words[1].text == std::to_string(each.code);
    });
    if (found == std::end(kScrollCodes)) {
        std::string reason = "no scroll code \"" + words[1].text + "\": there are";
        for (const ScrollCode& each : kScrollCodes) reason += std::string(" ") + each.name;
        throw WrongLine(words[1], reason + "; drag and drop do the others");
    }
    if (found->code != TB_THUMBPOSITION) return CheckDone(Person().Scroll(track_bar, found->code), track_bar);
    CheckDone(Person().Focus(track_bar), track_bar);
    track_bar.UserScroll(TB_THUMBPOSITION, track_bar.Position());
}

void Type(PageHost& host, Words& words, Json&) {
    auto& edit = As<hx::ui::Edit>(ControlOf(host, words[0]), "edit");
    CheckDone(Person().Type(edit, WideOf(words[1])), edit);
}

void Leave(PageHost& host, Words& words, Json&) {
    hx::ui::Control& control = ControlOf(host, words[0]);
    if (!control.HasFocus()) throw Impossible("the focus is not in control " + words[0].text);
    CheckDone(Person().Leave(control), control);
}

void Press(PageHost& host, Words& words, Json&) {
    hx::ui::Control& control = ControlOf(host, words[0]);
    if (!dynamic_cast<hx::ui::CheckBox*>(&control)) As<hx::ui::Button>(control, "button or check box");
    CheckDone(Person().Click(control), control);
}

constexpr ScriptCommand kCommands[] = {
    {"set", "ID VALUE", 2, 2, &Set},      {"drag", "ID POS", 2, 2, &Drag},  {"drop", "ID", 1, 1, &Drop},
    {"scroll", "ID CODE", 2, 2, &Scroll}, {"type", "ID TEXT", 2, 2, &Type}, {"leave", "ID", 1, 1, &Leave},
    {"press", "ID", 1, 1, &Press},
};

}  // namespace

std::span<const ScriptCommand> PersonCommands() {
    return kCommands;
}

}  // namespace hxctl
