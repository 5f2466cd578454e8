#include "platform/ui/headless/headless_view.h"

#include "platform/ui/window.h"

namespace hx::ui {
namespace {

void Count(HeadlessView::Counts& counts, bool now) {
    ++counts.invalidations;
    if (now) ++counts.immediate;
}

}  // namespace

HeadlessView::HeadlessView(const Window& window, std::shared_ptr<Handles> handles)
    : m_handle(window.Handle()), m_handles(std::move(handles)) {
    m_handles->insert(m_handle);
}

HeadlessView::~HeadlessView() {
    m_handles->erase(m_handle);
}

HeadlessView::Counts HeadlessView::OfControl(const Control& control) const {
    const auto found = m_controls.find(&control);
    return found == m_controls.end() ? Counts() : found->second;
}

void HeadlessView::Invalidate(bool now) {
    Count(m_window, now);
}

void HeadlessView::OnControl(Control& control, ControlChange change) {
    if (change == ControlChange::name || change == ControlChange::tool_tip) return;  // not to be seen
    Count(m_controls[&control], false);
}

void HeadlessView::InvalidateControl(Control& control, bool now) {
    Count(m_controls[&control], now);
}

}  // namespace hx::ui
