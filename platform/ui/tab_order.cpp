#include "platform/ui/tab_order.h"

#include <algorithm>

#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"

namespace hx::ui {
namespace {

void AddControls(const Window& window, std::vector<Control*>& controls) {
    std::vector<const Window*> embedded;
    if (const Dialog* const dialog = const_cast<Window&>(window).AsDialog()) {
        for (Control* const control : dialog->Controls()) {
            const Window* const inner = control->Inner();
            if (!inner || inner->Parent() != &window) {
                controls.push_back(control);
                continue;
            }
            embedded.push_back(inner);
            if (control->IsEnabled() && inner->IsVisible()) AddControls(*inner, controls);
        }
    }
    // Dialogs in plain windows, and components that no control is the place of.
    for (const Window* const child : window.Children()) {
        const bool known = std::find(embedded.begin(), embedded.end(), child) != embedded.end();
        if (!known && child->Kind() == WindowKind::child && child->IsVisible()) AddControls(*child, controls);
    }
}

}  // namespace

std::vector<Control*> ControlsIn(const Window& window) {
    std::vector<Control*> controls;
    AddControls(window, controls);
    return controls;
}

bool TakesFocus(const Control& control) {
    return control.Kind() != ControlKind::static_text && control.Kind() != ControlKind::component &&
           control.IsEnabled() && control.IsVisible();
}

Control* FocusTarget(Control& control) {
    const Window* const inner = control.IsEnabled() && control.IsVisible() ? control.Inner() : nullptr;
    if (inner) return NextStop(ControlsIn(*inner), nullptr, false);
    return TakesFocus(control) ? &control : nullptr;
}

Control* NextStop(const std::vector<Control*>& controls, const Control* from, bool backwards) {
    const size_t count = controls.size();
    const auto place = std::find(controls.begin(), controls.end(), from);
    const bool inside = place != controls.end();
    const auto start = static_cast<size_t>(place - controls.begin());
    for (size_t step = 1; step <= count; ++step) {
        const size_t forwards = inside ? start + step : step - 1;
        Control* const control = controls[backwards ? (start + count - step) % count : forwards % count];
        if (control != from && TakesFocus(*control) && (control->Style() & WS_TABSTOP) != 0) return control;
    }
    return nullptr;
}

Control* Dialog::NextTabStop(const Control* from, bool backwards) const {
    return NextStop(ControlsIn(*this), from, backwards);
}

bool Window::FocusFirst() {
    Control* const first = NextStop(ControlsIn(*this), nullptr, false);
    if (first) first->SetFocus();
    return first != nullptr;
}

bool Window::UserTab(bool backwards) {
    const Window& top = *Top();
    const Control* const from = top.FocusedWithin();
    Control* const next = NextStop(ControlsIn(from ? top : *this), from, backwards);
    if (next) next->SetFocus();
    return next != nullptr;
}

}  // namespace hx::ui
