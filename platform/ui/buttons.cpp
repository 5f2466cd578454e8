#include "platform/ui/codes.h"
#include "platform/ui/controls.h"
#include "platform/ui/dialog.h"

namespace hx::ui {

void StaticText::OnAttached(const DialogControl& line) {
    m_group = line.window_class == L"Button";
}

bool Button::IsDefault() const {
    return Parent() && Parent()->DefaultButton() == this;
}

void Button::UserClick() {
    Tell(BN_CLICKED);
}

void CheckBox::OnAttached(const DialogControl& /*line*/) {
    m_checked = false;
}

void CheckBox::SetChecked(bool checked) {
    if (checked == m_checked) return;
    m_checked = checked;
    Changed(ControlChange::value);
}

void CheckBox::UserClick() {
    SetChecked(!m_checked);
    Tell(BN_CLICKED);
}

}  // namespace hx::ui
