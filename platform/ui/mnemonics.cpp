// Letters that lead to a control: of all dialogs in a frame, those of the same letter take turns.
#include <algorithm>
#include <iterator>
#include <vector>

#include "platform/system/case_fold.h"
#include "platform/ui/attachment.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_kinds.h"
#include "platform/ui/services.h"
#include "platform/ui/tab_order.h"

namespace hx::ui {
namespace {

struct Mnemonic {
    Dialog* dialog;
    size_t place;  // among the dialog's controls
    Control* leads_to;
};

bool HasMnemonic(const Control& control, wchar_t letter) {
    return IsNamedByText(control.Kind()) && control.IsVisible() && MnemonicOf(control.Text()) == letter;
}

// Where the focus goes from the mnemonic of the text or frame at `label`: from a frame to the first that can
// have it; a text names nothing behind the next one.
Control* Labelled(const std::vector<Control*>& controls, size_t label) {
    const bool frame = static_cast<const StaticText&>(*controls[label]).IsGroup();
    for (size_t i = label + 1; i < controls.size(); ++i) {
        if (!frame && IsNamedByText(controls[i]->Kind())) return nullptr;
        if (Control* const target = FocusTarget(*controls[i])) return target;
    }
    return nullptr;
}

Control* Target(const std::vector<Control*>& controls, size_t place) {
    Control& control = *controls[place];
    if (control.Kind() == ControlKind::static_text) return Labelled(controls, place);
    return control.IsEnabled() ? &control : nullptr;
}

// Those of each dialog together, the dialogs from the outermost.
void AddMnemonics(Window& window, wchar_t letter, std::vector<Mnemonic>& mnemonics) {
    if (Dialog* const dialog = window.AsDialog()) {
        const std::vector<Control*>& controls = dialog->Controls();
        for (size_t i = 0; i < controls.size(); ++i) {
            Control* const target = HasMnemonic(*controls[i], letter) ? Target(controls, i) : nullptr;
            if (target) mnemonics.push_back({dialog, i, target});
        }
    }
    for (Window* const child : window.Children()) {
        if (child->Kind() == WindowKind::child && child->IsVisible()) AddMnemonics(*child, letter, mnemonics);
    }
}

// The dialog's first behind the control with the focus, else its first; null if it has none.
const Mnemonic* NextIn(const Window& window, const std::vector<Mnemonic>& mnemonics) {
    const Mnemonic* first = nullptr;
    for (const Mnemonic& each : mnemonics) {
        if (each.dialog != &window) continue;
        const std::vector<Control*>& controls = each.dialog->Controls();
        const auto focused = std::find(controls.begin(), controls.end(), each.dialog->Focused());
        const bool is_behind =
            focused != controls.end() && each.place > static_cast<size_t>(focused - controls.begin());
        if (is_behind) return &each;
        if (!first) first = &each;
    }
    return first;
}

// There is one.
const Mnemonic& Next(const Window& from, const Control* focused, const std::vector<Mnemonic>& mnemonics) {
    const auto leads_there = [&](const Mnemonic& each) { return each.leads_to == focused; };
    const auto here = std::find_if(mnemonics.begin(), mnemonics.end(), leads_there);
    if (here != mnemonics.end()) {
        const auto behind = std::find_if_not(here, mnemonics.end(), leads_there);
        if (behind != mnemonics.end()) return *behind;
        const auto again = std::find_if_not(mnemonics.begin(), here, leads_there);
        return again != mnemonics.end() ? *again : *here;
    }
    for (const Window* window = &from; window; window = window->Container()) {
        if (const Mnemonic* const inside = NextIn(*window, mnemonics)) return *inside;
    }
    return mnemonics.front();
}

}  // namespace

bool Window::UserMnemonic(wchar_t character) {
    const wchar_t letter = FoldCase(character);
    if (letter == 0) return false;
    std::vector<Mnemonic> mnemonics;
    AddMnemonics(*Top(), letter, mnemonics);
    if (mnemonics.empty()) return false;
    const Mnemonic& next = Next(*this, Top()->FocusedWithin(), mnemonics);
    Control* const control = next.dialog->Controls()[next.place];
    const Attachment attachment(*control);
    next.leads_to->SetFocus();
    if (!attachment.Get() || !control->IsEnabled() || !control->IsVisible()) return true;
    if (auto* const button = dynamic_cast<Button*>(control)) {
        button->UserClick();
    } else if (auto* const check_box = dynamic_cast<CheckBox*>(control)) {
        check_box->UserClick();
    }
    return true;
}

}  // namespace hx::ui
