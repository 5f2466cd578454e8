// A person at the list of profiles, and at the dialogs that come up.
#include <algorithm>
#include <iterator>

#include "apps/hxctl/page/page_host.h"
#include "apps/hxctl/page/person.h"
#include "apps/hxctl/page/script_command.h"
#include "platform/system/utf8.h"
#include "platform/ui/codes.h"
#include "platform/ui/services.h"

namespace hxctl {
namespace {

using hx::ui::ListBox;
using hx::ui::Point;

template <class T>
struct Named {
    const char* name;
    T value;
};

template <class T, size_t N>
T ValueOf(const Word& word, const char* kind, const Named<T> (&table)[N]) {
    const auto found =
        std::ranges::find_if(table, [&](const Named<T>& each) { return word.text == each.name; });
    if (found != std::end(table)) return found->value;
    std::string reason = std::string("no ") + kind + " \"" + word.text + "\": there are";
    const char* separator = " ";
    for (const Named<T>& each : table) {
        reason += std::string(separator) + "\"" + each.name + "\"";
        separator = ", ";
    }
    throw WrongLine(word, reason);
}

// The row that is shown so, without the mark of one that was changed; else the one that the key names.
int32_t RowOf(const ListBox& list, const Word& name) {
    const std::wstring wanted = WideOf(name);
    int32_t by_key = -1;
    for (int32_t i = 0; i < list.Count(); ++i) {
        const hx::ui::RowFacts facts = list.FactsOf(i);
        const std::wstring& text = list.RowText(i);
        if (text == wanted || (facts.marked && text == L'*' + wanted)) return i;
        if (facts.key == wanted) by_key = i;
    }
    if (by_key < 0) throw Impossible("there is no profile \"" + name.text + "\"");
    return by_key;
}

void ClickRow(PageHost& host, Words& words, Json&) {
    ListBox& list = host.ProfileList();
    CheckUsable(list);
    CheckDone(Person().ClickRow(list, RowOf(list, words[0])), list);
}

constexpr Named<uint32_t> kKeys[] = {
    {"F2", VK_F2},     {"Delete", VK_DELETE}, {"Back", VK_BACK}, {"Up", VK_UP},
    {"Down", VK_DOWN}, {"Home", VK_HOME},     {"End", VK_END},
};

// The row is clicked first, unless it is the selected one.
void PressKey(PageHost& host, Words& words, Json&) {
    const uint32_t key = ValueOf(words[1], "key", kKeys);
    ListBox& list = host.ProfileList();
    CheckUsable(list);
    const int32_t row = RowOf(list, words[0]);
    if (list.Selected() != row) {
        CheckDone(Person().ClickRow(list, row), list);
        if (RowOf(list, words[0]) != list.Selected()) {
            throw Impossible("the page does not select \"" + words[0].text + "\"");
        }
    }
    CheckDone(Person().Key(list, key), list);
}

// In the middle of the row, which is scrolled into view.
Point PlaceOfRow(ListBox& list, int32_t row) {
    const int32_t height = list.RowHeight();
    const int32_t top = row * height;
    const Point offset = list.ScrollOffset();
    if (top < offset.y || top + height > offset.y + list.Bounds().Height())
        list.UserScrolled({offset.x, top});
    return {list.Bounds().Width() / 2, top + height / 2 - list.ScrollOffset().y};
}

Point PlaceOf(ListBox& list, const Word& word) {
    if (!word.quoted && word.text == "@keyboard") return {-1, -1};
    if (word.quoted || word.text != "@outside") return PlaceOfRow(list, RowOf(list, word));
    const int32_t below = list.Count() * list.RowHeight() - list.ScrollOffset().y + 1;
    if (below >= list.Bounds().Height()) throw Impossible("the rows leave no room in the list");
    return {list.Bounds().Width() / 2, below};
}

// As the page's menu numbers them, whatever language it is in.
constexpr Named<uint32_t> kCommandsOfMenu[] = {
    {"Save as", 32773}, {"Discard", 32774}, {"Delete", 32771}, {"Rename", 32772}};

void OpenMenu(PageHost& host, Words& words, Json& answer) {
    const uint32_t command = words.size() > 1 ? ValueOf(words[1], "command", kCommandsOfMenu) : 0;
    ListBox& list = host.ProfileList();
    CheckUsable(list);
    hx::ui::Script& dialogs = host.Dialogs();
    dialogs.TakeMenus();
    dialogs.AnswerMenu(command);
    const bool done = Person().ContextMenu(list, PlaceOf(list, words[0]));
    dialogs.DropMenuAnswers();
    const std::vector<hx::ui::Script::MenuShown> menus = dialogs.TakeMenus();
    Json& items = answer["items"] = Json::array();
    CheckDone(done, list);
    if (menus.empty()) {
        if (command != 0) throw Impossible("no menu came up");
        return;
    }
    for (const hx::ui::MenuLine& line : menus.back().lines) {
        if (line.separator) continue;
        items.push_back(
            {{"text", hx::ToUtf8(hx::ui::WithoutMnemonic(line.text))}, {"enabled", line.enabled}});
    }
    if (menus.back().chosen != command) throw Impossible("\"" + words[1].text + "\" is disabled");
}

// Of the dialog for a profile's name: where it asks what is to become of changes, OK discards them.
constexpr uint32_t kSaveBesideDiscard = 284;

bool AsksForChanges(const hx::ui::Dialog& dialog) {
    const hx::ui::Control* const save = dialog.Find(kSaveBesideDiscard);
    return save && save->IsVisible();
}

uint32_t SaveButton(const hx::ui::Dialog& dialog) {
    return AsksForChanges(dialog) ? kSaveBesideDiscard : IDOK;
}

uint32_t DiscardButton(const hx::ui::Dialog& dialog) {
    return AsksForChanges(dialog) ? IDOK : 0;
}

uint32_t CancelButton(const hx::ui::Dialog&) {
    return IDCANCEL;
}

struct Pressed {
    hx::ui::Script::Answer::By by;
    uint32_t (*find_button)(const hx::ui::Dialog& dialog);
};
constexpr Named<Pressed> kButtons[] = {
    {"save", {hx::ui::Script::Answer::By::button, &SaveButton}},
    {"rename", {hx::ui::Script::Answer::By::button, &SaveButton}},
    {"discard", {hx::ui::Script::Answer::By::button, &DiscardButton}},
    {"cancel", {hx::ui::Script::Answer::By::button, &CancelButton}},
    {"enter", {hx::ui::Script::Answer::By::enter, nullptr}},
    {"close", {hx::ui::Script::Answer::By::close, nullptr}},
};

void QueueAnswer(PageHost& host, Words& words, Json&) {
    const Pressed pressed = ValueOf(words[0], "answer", kButtons);
    hx::ui::Script::Answer answer;
    answer.by = pressed.by;
    if (pressed.find_button) answer.find_button = pressed.find_button;
    if (words.size() > 1) answer.typed = WideOf(words[1]);
    host.Dialogs().AnswerModal(std::move(answer));
}

constexpr ScriptCommand kCommands[] = {
    {"row", "NAME", 1, 1, &ClickRow},
    {"key", "NAME KEY", 2, 2, &PressKey},
    {"menu", "NAME|@outside|@keyboard [COMMAND]", 1, 2, &OpenMenu},
    {"answer", "BUTTON [NAME]", 1, 2, &QueueAnswer},
};

}  // namespace

std::span<const ScriptCommand> ListCommands() {
    return kCommands;
}

}  // namespace hxctl
