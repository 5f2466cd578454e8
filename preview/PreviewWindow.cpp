#include "preview/PreviewWindow.h"

#include <exception>
#include <utility>

namespace hx::preview {
namespace {

constexpr uint32_t kCyclesMessage = 1;
constexpr uint32_t kRefreshMessage = 2;
constexpr uint32_t kHintMessage = 3;

using Clock = std::chrono::steady_clock;

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
            HintLasts();
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
    const auto now = Clock::now();
    const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(now - m_refreshed);
    if (since < kShortestInterval && RefreshLater(kShortestInterval - since)) return;
    m_refreshed = now;
    try {
        const Hint before = m_scene.CurrentHint();
        if (m_scene.Update(*m_cycles)) m_unpainted = true;
        if (m_scene.CurrentHint() != before) m_hint_since = now;
        if (m_unpainted) Invalidate();
        m_unpainted = false;
        HintLasts();
        m_cycles->Listen();
    } catch (const std::exception&) {
        // Memory is short: another try a little later, or with the next line.
        if (!RefreshLater(kShortestInterval)) m_cycles->AwaitMore(Handle());
    }
}

bool PreviewWindow::RefreshLater(std::chrono::milliseconds delay) {
    try {
        m_refresh_waits = PostWindowMessageAfter(Handle(), {kRefreshMessage, 0, 0}, delay);
    } catch (const std::exception&) {
        m_refresh_waits = false;
    }
    return m_refresh_waits;
}

void PreviewWindow::HintLasts() {
    if (m_telling_waits || m_scene.CurrentHint() == m_told_hint) return;
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(m_hint_since + kHintLasts - Clock::now());
    try {
        if (rest.count() > 0) {
            m_telling_waits = PostWindowMessageAfter(Handle(), {kHintMessage, 0, 0}, rest);
        } else {
            TellHint();
        }
    } catch (const std::exception&) {
        // Memory is short: the next picture asks again.
        m_telling_waits = false;
    }
}

void PreviewWindow::TellHint() {
    // Somebody may have given it another name since.
    if (AccessibleName() != m_told_name) m_name = AccessibleName();
    const std::wstring& hint = m_painter.Texts().Of(m_scene.CurrentHint());
    std::wstring told = m_name;
    if (!m_name.empty() && !hint.empty()) told += L": ";
    told += hint;
    SetAccessibleName(told);
    m_told_name = std::move(told);
    m_told_hint = m_scene.CurrentHint();
}

}  // namespace hx::preview
