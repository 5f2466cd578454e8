#include "preview/PreviewWindow.h"

#include <utility>

namespace hx::preview {
namespace {

constexpr uint32_t kCyclesMessage = 1;
constexpr uint32_t kRefreshMessage = 2;
constexpr uint32_t kHintMessage = 3;

}  // namespace

PreviewWindow::PreviewWindow(std::shared_ptr<NewestCycles> cycles, PreviewTexts texts, bool blend)
    : m_cycles(std::move(cycles)), m_painter(std::move(texts), blend) {
    m_cycles->Attach(Handle(), kCyclesMessage);
}

PreviewWindow::~PreviewWindow() {
    m_cycles->Detach(Handle());
}

void PreviewWindow::OnPaint(ui::IPainter& painter) {
    m_painter.Paint(painter, ClientSize(), m_scene);
}

void PreviewWindow::OnAppearanceChanged() {
    m_painter.Forget();
    Invalidate();
}

void PreviewWindow::OnMessage(const WindowMessage& message) {
    switch (message.id) {
        case kCyclesMessage:
            Refresh();
            break;
        case kRefreshMessage:
            m_refresh_waits = false;
            Refresh();
            break;
        case kHintMessage:
            m_telling_waits = false;
            TellHint();
            break;
        default:
            break;
    }
}

void PreviewWindow::OnSize(const ui::Size&) {
    Invalidate();
}

void PreviewWindow::OnShown(bool) {
    Refresh();
}

void PreviewWindow::Refresh() {
    if (!IsShown() || m_refresh_waits) return;
    const auto now = std::chrono::steady_clock::now();
    const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(now - m_refreshed);
    if (since < kShortestInterval) {
        m_refresh_waits =
            PostWindowMessageAfter(Handle(), {kRefreshMessage, 0, 0}, kShortestInterval - since);
        return;
    }
    m_refreshed = now;
    const Hint before = m_scene.CurrentHint();
    if (m_scene.Update(*m_cycles)) Invalidate();
    if (m_scene.CurrentHint() != before) HintChanged();
    m_cycles->Listen();
}

void PreviewWindow::HintChanged() {
    if (m_telling_waits) return;
    m_telling_waits = PostWindowMessageAfter(Handle(), {kHintMessage, 0, 0}, kHintLasts);
}

void PreviewWindow::TellHint() {
    if (std::exchange(m_told_hint, m_scene.CurrentHint()) == m_scene.CurrentHint()) return;
    // Somebody may have given it another name since.
    if (AccessibleName() != m_told_name) m_name = AccessibleName();
    const std::wstring& hint = m_painter.Texts().Of(m_told_hint);
    m_told_name = m_name;
    if (!m_name.empty() && !hint.empty()) m_told_name += L": ";
    m_told_name += hint;
    SetAccessibleName(m_told_name);
}

}  // namespace hx::preview
