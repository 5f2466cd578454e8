#include "platform/ui/control.h"

#include "platform/ui/attachment.h"
#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_kinds.h"
#include "platform/ui/renderer.h"
#include "platform/ui/services.h"

namespace hx::ui {

Control::~Control() {
    if (m_parent) m_parent->Forget(*this);
}

void Control::Attach(Dialog& parent, const DialogControl& line, const Rectangle& bounds) {
    m_id = line.id;
    m_text = line.text;
    m_style = line.style;
    m_bounds = bounds;
    m_enabled = (line.style & WS_DISABLED) == 0;
    m_visible = (line.style & WS_VISIBLE) != 0;
    m_parent = &parent;
    OnAttached(line);
}

void Control::Detach() {
    m_parent = nullptr;
}

void Control::Changed(ControlChange change) {
    if (m_parent && m_parent->View()) m_parent->View()->OnControl(*this, change);
}

bool Control::Tell(uint32_t code) {
    if (!m_parent) return false;
    const Attachment attachment(*this);
    m_parent->OnControlEvent(*this, code);
    return attachment.Get() != nullptr;
}

void Control::SetText(std::wstring text) {
    if (text == m_text) return;
    m_text = std::move(text);
    Changed(ControlChange::text);
}

void Control::Enable(bool enabled) {
    if (enabled == m_enabled) return;
    m_enabled = enabled;
    Changed(ControlChange::enabled);
    if (!enabled && HasFocus()) m_parent->SetFocus(m_parent->NextTabStop(this, false));
}

void Control::Show(bool visible) {
    if (visible == m_visible) return;
    m_visible = visible;
    Changed(ControlChange::visible);
    if (!visible && HasFocus()) m_parent->SetFocus(m_parent->NextTabStop(this, false));
}

void Control::Move(const Rectangle& bounds) {
    if (bounds == m_bounds) return;
    m_bounds = bounds;
    Changed(ControlChange::bounds);
}

void Control::ModifyStyle(uint32_t remove, uint32_t add) {
    const uint32_t style = (m_style & ~remove) | add;
    if (style == m_style) return;
    m_style = style;
    Changed(ControlChange::style);
}

std::wstring Control::AccessibleName() const {
    if (!m_accessible_name.empty()) return m_accessible_name;
    if (IsNamedByText(m_kind) && !m_text.empty()) return WithoutMnemonic(m_text);
    const StaticText* const label = m_parent ? m_parent->LabelOf(*this) : nullptr;
    return label ? WithoutMnemonic(label->Text()) : std::wstring();
}

void Control::SetAccessibleName(std::wstring name) {
    if (name == m_accessible_name) return;
    m_accessible_name = std::move(name);
    Changed(ControlChange::name);
}

void Control::SetToolTip(std::wstring text) {
    if (text == m_tool_tip) return;
    m_tool_tip = std::move(text);
    Changed(ControlChange::tool_tip);
}

bool Control::HasFocus() const {
    return m_parent && m_parent->Focused() == this;
}

void Control::SetFocus() {
    if (m_parent) m_parent->SetFocus(this);
}

void Control::Invalidate(bool now) {
    if (m_parent && m_parent->View()) m_parent->View()->InvalidateControl(*this, now);
}

}  // namespace hx::ui
