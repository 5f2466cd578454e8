#include "platform/ui/qt/qt_user.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <cstdlib>

#include "platform/ui/codes.h"
#include "platform/ui/modal.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/events.h"
#include "platform/ui/qt/keys.h"
#include "platform/ui/qt/list_box_view.h"
#include "platform/ui/qt/released.h"
#include "platform/ui/qt/track_bar_view.h"
#include "platform/ui/qt/window_view.h"

namespace hx::ui {

namespace {

// The text that the keyboard gives along with a key.
QString TextOf(uint32_t key) {
    switch (key) {
        case VK_BACK:
            return QStringLiteral("\b");
        case VK_RETURN:
            return QStringLiteral("\r");
        case VK_SPACE:
            return QStringLiteral(" ");
        default:
            return {};
    }
}

bool IsReachable(const Window& window) {
    return window.IsShown() && !IsBehindModal(window);
}

// A click is only that if it is where the box or its text is.
QPoint PlaceToClick(const QWidget& widget) {
    constexpr int kInBox = 6;
    return {qobject_cast<const QCheckBox*>(&widget) ? kInBox : widget.width() / 2, widget.height() / 2};
}

}  // namespace

ControlView* QtUser::Reach(const Control& control) {
    if (!control.Parent() || !IsReachable(*control.Parent()) || !control.IsEnabled() ||
        !control.IsVisible()) {
        return nullptr;
    }
    ControlView* const view = DialogView::Of(control);
    if (!view) return nullptr;
    const Attachment attachment(control);
    QApplication::setActiveWindow(view->Widget().window());
    return attachment.Get() ? view : nullptr;
}

ControlView* QtUser::Focused(Control& control) {
    ControlView* const view = Reach(control);
    if (!view || view->Widget().focusPolicy() == Qt::NoFocus) return nullptr;
    const Attachment attachment(control);
    view->Widget().setFocus(Qt::MouseFocusReason);
    // Whoever lost the focus may have disabled it, or taken the focus back.
    return attachment.Get() && control.HasFocus() ? Reach(control) : nullptr;
}

bool QtUser::Focus(Control& control) {
    const InCall call;
    return Focused(control) != nullptr;
}

bool QtUser::Leave(Control& control) {
    const InCall call;
    ControlView* const view = control.HasFocus() ? Reach(control) : nullptr;
    if (!view) return false;
    const Attachment attachment(control);
    SendKey(view->Widget(), Qt::Key_Tab);
    if (attachment.Get() && control.HasFocus()) view->Widget().clearFocus();
    return true;
}

bool QtUser::Click(Control& control) {
    const InCall call;
    if (control.Kind() != ControlKind::button && control.Kind() != ControlKind::check_box) return false;
    ControlView* const view = Focused(control);
    if (!view) return false;
    SendClick(view->Widget(), PlaceToClick(view->Widget()));
    return true;
}

bool QtUser::Type(Edit& edit, const std::wstring& text) {
    const InCall call;
    ControlView* const view = Focused(edit);
    if (!view) return false;
    const Attachment attachment(edit);
    auto& line_edit = static_cast<QLineEdit&>(view->Widget());
    line_edit.selectAll();
    if (text.empty()) SendKey(line_edit, Qt::Key_Delete);
    for (const wchar_t character : text) {
        if (!attachment.Get() || !edit.HasFocus() || !Reach(edit)) break;  // the keys go elsewhere
        SendKey(line_edit, Qt::Key_unknown, Qt::NoModifier, ToQt({&character, 1}));
    }
    return true;
}

bool QtUser::Paste(Edit& edit, const std::wstring& text) {
    const InCall call;
    ControlView* const view = Focused(edit);
    if (!view) return false;
    auto& line_edit = static_cast<QLineEdit&>(view->Widget());
    QGuiApplication::clipboard()->setText(ToQt(text));
    line_edit.selectAll();
    line_edit.paste();
    return true;
}

std::wstring QtUser::Clipboard() const {
    return FromQt(QGuiApplication::clipboard()->text());
}

bool QtUser::Choose(ComboBox& combo_box, int32_t index) {
    const InCall call;
    if (index < 0 || static_cast<size_t>(index) >= combo_box.Items().size()) return false;
    ControlView* const view = Focused(combo_box);
    if (!view) return false;
    auto& widget = static_cast<QComboBox&>(view->Widget());
    // What choosing in the list that drops down comes to. The list itself takes the focus of the whole
    // desktop.
    widget.setCurrentIndex(index);
    return true;
}

bool QtUser::Drag(TrackBar& track_bar, int32_t position) {
    const InCall call;
    ControlView* const view = Focused(track_bar);
    if (!view) return false;
    auto& widget = static_cast<TrackBarView&>(view->Widget());
    if (!widget.IsDragging()) SendButton(widget, widget.Handle().center(), Qt::LeftButton, true);
    // Between two pixels there are positions, too.
    widget.DragTo(position);
    widget.TellWaiting();
    return true;
}

bool QtUser::Drop(TrackBar& track_bar) {
    const InCall call;
    ControlView* const view = DialogView::Of(track_bar);
    if (!view || !static_cast<TrackBarView&>(view->Widget()).IsDragging()) return false;
    SendButton(view->Widget(), static_cast<TrackBarView&>(view->Widget()).Handle().center(), Qt::LeftButton,
               false);
    return true;
}

bool QtUser::Scroll(TrackBar& track_bar, uint32_t code) {
    const InCall call;
    ControlView* const view = Focused(track_bar);
    if (!view) return false;
    for (const uint32_t key : {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END}) {
        if (track_bar.CodeOfKey(key) != code) continue;
        SendKey(view->Widget(), ToolkitKeyOf(key));
        return true;
    }
    return false;
}

bool QtUser::Wheel(Control& control, int32_t notches) {
    const InCall call;
    ControlView* const view = Reach(control);
    if (!view) return false;
    const Attachment attachment(control);
    for (int32_t i = 0; i < std::abs(notches) && attachment.Get(); ++i) {
        SendWheel(view->Surface(), notches > 0 ? 1 : -1);
        view->TellWaiting();
    }
    return true;
}

bool QtUser::ClickRow(ListBox& list, int32_t index) {
    const InCall call;
    ControlView* const view = index >= 0 && index < list.Count() ? Focused(list) : nullptr;
    if (!view) return false;
    auto& widget = static_cast<ListBoxView&>(view->Widget());
    const QModelIndex row = widget.model()->index(index, 0);
    widget.scrollTo(row);
    SendClick(widget.Surface(), {1, widget.visualRect(row).center().y()});
    return true;
}

bool QtUser::ContextMenu(ListBox& list, Point where) {
    const InCall call;
    constexpr Point kByKey = {-1, -1};
    ControlView* const view = where == kByKey ? Focused(list) : Reach(list);
    if (!view) return false;
    if (where == kByKey) {
        SendKey(view->Widget(), Qt::Key_Menu);
    } else {
        SendClick(view->Surface(), ToQt(where), Qt::RightButton);
    }
    return true;
}

bool QtUser::Key(Control& control, uint32_t key) {
    const InCall call;
    ControlView* const view = Focused(control);
    if (!view) return false;
    SendKey(view->Widget(), ToolkitKeyOf(key), Qt::NoModifier, TextOf(key));
    return true;
}

bool QtUser::Key(Dialog& dialog, uint32_t key, bool shift) {
    const InCall call;
    if (!IsReachable(dialog)) return false;
    const Control* const focused = dialog.FocusedWithin();
    ControlView* const view = focused ? Reach(*focused) : nullptr;
    QWidget& widget = view ? view->Widget() : WindowView::Of(&dialog)->Widget();
    const bool backwards = shift && key == VK_TAB;
    SendKey(widget, backwards ? Qt::Key_Backtab : ToolkitKeyOf(key),
            shift ? Qt::ShiftModifier : Qt::NoModifier, TextOf(key));
    return true;
}

bool QtUser::Mnemonic(Dialog& dialog, wchar_t letter) {
    const InCall call;
    if (!IsReachable(dialog)) return false;
    const Control* const focused = dialog.FocusedWithin();
    ControlView* const view = focused ? Reach(*focused) : nullptr;
    QWidget& widget = view ? view->Widget() : WindowView::Of(&dialog)->Widget();
    QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, Qt::AltModifier, ToQt({&letter, 1}));
    return QCoreApplication::sendEvent(&widget, &event) && event.isAccepted();
}

bool QtUser::Close(Window& frame) {
    const InCall call;
    if (frame.Kind() != WindowKind::frame || !IsReachable(frame)) return false;
    WindowView::Of(&frame)->Widget().close();
    return true;
}

void QtUser::QueueClick(Control& control) {
    m_queued.AddClick(control);
}

void QtUser::QueueDrag(TrackBar& track_bar, int32_t position) {
    m_queued.AddDrag(track_bar, position);
}

}  // namespace hx::ui
