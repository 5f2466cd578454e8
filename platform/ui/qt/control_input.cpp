#include "platform/ui/qt/control_input.h"

#include <QApplication>
#include <QMouseEvent>

#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/keys.h"
#include "platform/ui/qt/released.h"
#include "platform/ui/services.h"
#include "platform/ui/tab_order.h"

namespace hx::ui {

ControlInput::ControlInput(ControlView& view) : QObject(&view.Widget()), m_view(view) {
    view.Widget().installEventFilter(this);
    if (&view.Surface() != &view.Widget()) view.Surface().installEventFilter(this);
}

bool ControlInput::eventFilter(QObject* watched, QEvent* event) {
    Control* const control = m_view.Model();
    if (!control || !control->Parent()) return false;
    const InCall call;
    const bool on_surface = watched == &m_view.Surface();
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            if (!Wants(static_cast<QKeyEvent&>(*event))) return false;
            event->accept();
            return true;
        case QEvent::KeyPress: {
            // A key that is held adds to what waits.
            auto& key = static_cast<QKeyEvent&>(*event);
            if (!key.isAutoRepeat()) m_view.TellWaiting();
            return m_view.Model() && control->Parent() && OnKey(key);
        }
        case QEvent::Shortcut:
            return control->Parent()->UserMnemonic(MnemonicOf(control->Text()));
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            if (!on_surface || watched == &m_view.Widget()) OnFocus(static_cast<QFocusEvent&>(*event));
            return false;
        case QEvent::Wheel:
            // Whoever scrolls past something must not change it.
            if (control->Kind() == ControlKind::list_box || m_view.Widget().hasFocus()) return false;
            event->ignore();
            return true;
        case QEvent::MouseButtonPress: {
            const auto& mouse = static_cast<QMouseEvent&>(*event);
            m_view.TellWaiting();
            if (!m_view.Model() || !on_surface || mouse.button() != Qt::RightButton ||
                !control->IsEnabled()) {
                return false;
            }
            const QPoint where = mouse.position().toPoint();
            const bool has_own_menu = control->Kind() == ControlKind::edit;
            control->OnContextMenu({where.x(), where.y()});
            return !has_own_menu;
        }
        default:
            return false;
    }
}

bool ControlInput::OnKey(const QKeyEvent& event) {
    Control& control = *m_view.Model();
    if (const wchar_t letter = MnemonicIn(event)) return control.Parent()->UserMnemonic(letter);
    if (IsMenuKey(event) && control.Kind() != ControlKind::edit) {
        control.OnContextMenu({-1, -1});
        return true;
    }
    const uint32_t key = SystemKeyOf(event);
    if (key == 0) return false;
    if (control.OnKeyDown(key)) return true;
    const bool of_dialog = key == VK_RETURN || key == VK_ESCAPE || key == VK_TAB;
    return of_dialog && m_view.Model() && control.Parent()->UserKey(key, IsBackwards(event));
}

bool ControlInput::Wants(const QKeyEvent& event) const {
    const Control& control = *m_view.Model();
    if (const wchar_t letter = MnemonicIn(event)) {
        for (const Control* const other : ControlsIn(*control.Parent()->Top())) {
            if (MnemonicOf(other->Text()) == MnemonicOf(std::wstring{L'&', letter})) return true;
        }
        return false;
    }
    const uint32_t key = SystemKeyOf(event);
    return IsMenuKey(event) ||
           (control.Kind() == ControlKind::list_box && (key == VK_DELETE || key == VK_BACK || key == VK_F2));
}

void ControlInput::OnFocus(const QFocusEvent& event) {
    // While a menu or a list is dropped down, the focus counts as where it was.
    if (event.reason() == Qt::PopupFocusReason) return;
    Control& control = *m_view.Model();
    if (event.gotFocus()) {
        control.Parent()->UserFocus(&control);
        return;
    }
    // If it goes to another control, of whatever dialog, that one tells.
    const auto* const now = dynamic_cast<const ControlView*>(QApplication::focusWidget());
    if (!now || !now->Model()) control.Parent()->UserFocus(nullptr);
}

}  // namespace hx::ui
