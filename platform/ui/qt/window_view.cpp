#include "platform/ui/qt/window_view.h"

#include <QCloseEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/qt/appearance.h"
#include "platform/ui/qt/control_input.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/keys.h"
#include "platform/ui/qt/qt_painter.h"
#include "platform/ui/qt/released.h"

namespace hx::ui {

class WindowWidget final : public CallingWidget<QWidget> {
public:
    WindowWidget(Window& window, QWidget* parent, Qt::WindowFlags flags)
        : CallingWidget(parent, flags), m_window(&window) {}

    // The window is shown no more; the widget goes as released ones do.
    void Release() {
        m_window = nullptr;
        ReleaseWidget(*this);
    }

protected:
    // With the focus on no control. The toolkit does not give Tab to keyPressEvent.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ToolTip && ShowToolTip(static_cast<QHelpEvent&>(*event))) return true;
        const bool is_key = event->type() == QEvent::KeyPress;
        const auto* const key = is_key ? static_cast<QKeyEvent*>(event) : nullptr;
        if (!key || !m_window || SystemKeyOf(*key) != VK_TAB) return CallingWidget::event(event);
        const InCall call;
        return m_window->UserKey(VK_TAB, IsBackwards(*key));
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        if (!m_window) return;
        QPainter painter(this);
        QtPainter ours(painter, palette());
        m_window->OnPaint(ours);
    }

    void moveEvent(QMoveEvent* /*event*/) override { TellMoved(); }
    void resizeEvent(QResizeEvent* /*event*/) override { TellMoved(); }

    void closeEvent(QCloseEvent* event) override {
        // Whoever owns the window decides.
        event->ignore();
        if (m_window) m_window->OnClose();
    }

    void keyPressEvent(QKeyEvent* event) override {
        const uint32_t key = SystemKeyOf(*event);
        const bool of_dialog = key == VK_RETURN || key == VK_ESCAPE;
        const wchar_t letter = MnemonicIn(*event);
        const bool done = m_window && ((of_dialog && m_window->UserKey(key)) ||
                                       (letter != 0 && m_window->UserMnemonic(letter)));
        if (!done) QWidget::keyPressEvent(event);
    }

    // Where Tab goes, and the focus of what is disabled or hidden, the dialogs decide.
    bool focusNextPrevChild(bool /*next*/) override { return true; }

    void changeEvent(QEvent* event) override {
        QWidget::changeEvent(event);
        const bool of_appearance = event->type() == QEvent::PaletteChange ||
                                   event->type() == QEvent::StyleChange ||
                                   event->type() == QEvent::FontChange;
        if (of_appearance && m_window && m_window->IsCreated()) m_window->OnAppearanceChanged();
    }

private:
    // Of what the mouse goes through: frames around others, and places of components.
    bool ShowToolTip(const QHelpEvent& event) {
        for (const QWidget* const part : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            const bool here =
                part->isVisible() && !part->isWindow() && part->geometry().contains(event.pos());
            if (!here || part->toolTip().isEmpty()) continue;
            QToolTip::showText(event.globalPos(), part->toolTip(), this, part->geometry());
            return true;
        }
        return false;
    }

    void TellMoved() {
        if (!m_window || !m_window->IsCreated() || !isVisible()) return;
        const Rectangle bounds = FromQt(geometry());
        if (bounds != m_window->Bounds()) m_window->UserMoved(bounds);
    }

    Window* m_window;
};

namespace {

WindowWidget* MakeWidget(Window& window) {
    QWidget* parent = nullptr;
    Qt::WindowFlags flags = Qt::Widget;
    if (const WindowView* const view = WindowView::Of(window.Parent())) parent = &view->Widget();
    if (window.Kind() == WindowKind::frame) {
        flags = parent
                    ? Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint
                    : Qt::Window;
        if (parent) parent = parent->window();
    }
    return new WindowWidget(window, parent, flags);
}

}  // namespace

WindowView::WindowView(Window& window) : m_window(window), m_widget(MakeWidget(window)) {
    m_widget->setFont(DialogFontOf(kDialogPoints));
    m_widget->setWindowTitle(ToQt(window.Caption()));
    m_widget->setGeometry(ToQt(window.Bounds()));
    WindowView::OnAccessibleName();
}

WindowView::~WindowView() {
    m_widget->Release();
}

QWidget& WindowView::Widget() const {
    return *m_widget;
}

WindowView* WindowView::Of(const Window* window) {
    return window ? static_cast<WindowView*>(window->View()) : nullptr;
}

void WindowView::OnMoved() {
    m_widget->setGeometry(ToQt(m_window.Bounds()));
}

void WindowView::OnShown() {
    const bool visible = m_window.IsVisible();
    m_widget->setVisible(visible);
    if (!visible || m_window.Kind() != WindowKind::frame) return;
    m_widget->activateWindow();
}

void WindowView::OnCaption() {
    m_widget->setWindowTitle(ToQt(m_window.Caption()));
    OnAccessibleName();
}

void WindowView::OnAccessibleName() {
    const std::wstring& name = m_window.AccessibleName();
    m_widget->setAccessibleName(ToQt(name.empty() ? m_window.Caption() : name));
}

void WindowView::Invalidate(bool now) {
    if (now) {
        m_widget->repaint();
    } else {
        m_widget->update();
    }
}

}  // namespace hx::ui
