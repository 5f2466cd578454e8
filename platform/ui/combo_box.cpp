#include "platform/ui/codes.h"
#include "platform/ui/controls.h"

namespace hx::ui {

void ComboBox::OnAttached(const DialogControl& /*line*/) {
    m_items.clear();
    m_selected = -1;
}

void ComboBox::Add(std::wstring item) {
    m_items.push_back(std::move(item));
    Changed(ControlChange::items);
}

void ComboBox::Clear() {
    if (m_items.empty()) return;
    m_items.clear();
    m_selected = -1;
    Changed(ControlChange::items);
}

void ComboBox::Select(int32_t index) {
    m_selected = index >= 0 && static_cast<size_t>(index) < m_items.size() ? index : -1;
    Changed(ControlChange::selection);
}

void ComboBox::UserSelect(int32_t index) {
    if (index < 0 || static_cast<size_t>(index) >= m_items.size()) return;
    Select(index);
    Tell(CBN_SELCHANGE);
}

}  // namespace hx::ui
