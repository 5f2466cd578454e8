#include "platform/ui/qt/control_view.h"

#include <QScopedValueRollback>

#include "platform/ui/codes.h"
#include "platform/ui/qt/control_input.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/released.h"
#include "platform/ui/qt/tool_tip.h"

namespace hx::ui {

namespace {

// By ControlKind.
constexpr ControlView* (*kMakers[])(Control&, QWidget&) = {
    MakeStaticView,   MakeButtonView,  MakeCheckBoxView, MakeEditView,
    MakeComboBoxView, MakeListBoxView, MakeTrackBarView, MakeComponentView,
};

}  // namespace

ControlView::ControlView(Control& control, QWidget& widget) : m_control(&control), m_widget(&widget) {}

ControlView* ControlView::Make(Control& control, QWidget& parent) {
    ControlView* const view = kMakers[static_cast<size_t>(control.Kind())](control, parent);
    QWidget& widget = view->Widget();
    widget.setObjectName(QString::number(control.Id()));
    new ControlInput(*view);
    view->ShowAll();
    return view;
}

void ControlView::Release() {
    m_control = nullptr;
    ReleaseWidget(*m_widget);
}

void ControlView::ShowAll() {
    using enum ControlChange;
    for (const ControlChange change :
         {style, text, items, range, value, selection, bounds, enabled, name, tool_tip, visible}) {
        Show(change);
    }
}

void ControlView::Show(ControlChange change) {
    if (!m_control) return;
    const QScopedValueRollback showing(m_showing, true);
    ShowCommon(change);
    ShowOwn(change);
}

void ControlView::Repaint(bool now) {
    if (now) {
        Surface().repaint();
    } else {
        Surface().update();
    }
}

QRect ControlView::Place() const {
    return ToQt(m_control->Bounds());
}

void ControlView::ShowCommon(ControlChange change) {
    switch (change) {
        case ControlChange::style:
            if (m_widget->focusPolicy() != Qt::NoFocus) {
                m_widget->setFocusPolicy((m_control->Style() & WS_TABSTOP) ? Qt::StrongFocus
                                                                           : Qt::ClickFocus);
            }
            break;
        case ControlChange::bounds:
            m_widget->setGeometry(Place());
            break;
        case ControlChange::enabled:
            m_widget->setEnabled(m_control->IsEnabled());
            break;
        case ControlChange::visible:
            m_widget->setVisible(m_control->IsVisible());
            break;
        case ControlChange::name:
            m_widget->setAccessibleName(ToQt(m_control->AccessibleName()));
            break;
        case ControlChange::tool_tip:
            m_widget->setToolTip(ToolTipText(m_control->ToolTip()));
            m_widget->setAccessibleDescription(ToQt(m_control->ToolTip()));
            break;
        default:
            break;
    }
}

}  // namespace hx::ui
