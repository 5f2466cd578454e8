// The views of a dialog's controls, and how they belong together.
#include <QApplication>
#include <QScreen>
#include <vector>

#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/qt/appearance.h"
#include "platform/ui/qt/window_view.h"

namespace hx::ui {

namespace {

const DialogTemplate* TemplateOf(const Dialog& dialog) {
    if (!dialog.Module()) return nullptr;
    const auto& dialogs = dialog.Module()->GetResources().dialogs;
    const auto found = dialogs.find(dialog.TemplateId());
    return found == dialogs.end() ? nullptr : &found->second;
}

}  // namespace

DialogView::DialogView(Dialog& dialog) : WindowView(dialog), m_dialog(dialog) {
    const DialogTemplate* const from = TemplateOf(dialog);
    Widget().setFont(DialogFontOf(from ? from->font_points : 0));
    for (Control* const control : dialog.Controls()) {
        m_controls.emplace(control, ControlView::Make(*control, Widget()));
    }
    Relate();
    OnDefaultButton();
    if (dialog.Kind() != WindowKind::frame) return;
    // Below the template's size nothing could be laid out; but a window is no larger than the screen.
    const Size size = dialog.TemplateSize();
    const bool resizable = from && (from->style & WS_THICKFRAME) != 0;
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QSize least(size.width, size.height);
    Widget().setMinimumSize(screen ? least.boundedTo(screen->availableGeometry().size()) : least);
    if (!resizable) Widget().setMaximumSize(size.width, size.height);
}

DialogView::~DialogView() {
    for (const auto& [control, view] : m_controls) view->Release();
}

ControlView* DialogView::ViewOf(const Control& control) const {
    const auto found = m_controls.find(&control);
    return found == m_controls.end() ? nullptr : found->second;
}

ControlView* DialogView::Of(const Control& control) {
    const Dialog* const dialog = control.Parent();
    return dialog && dialog->View() ? static_cast<DialogView*>(dialog->View())->ViewOf(control) : nullptr;
}

// A label stands for the first control that has its name.
void DialogView::Relate() {
    std::map<const StaticText*, QWidget*> labelled;
    for (const Control* const control : m_dialog.Controls()) {
        if (control->Kind() == ControlKind::static_text)
            labelled.emplace(static_cast<const StaticText*>(control), nullptr);
        const StaticText* const label = m_dialog.LabelOf(*control);
        QWidget& widget = ViewOf(*control)->Widget();
        if (!label || widget.focusPolicy() == Qt::NoFocus) continue;
        QWidget*& buddy = labelled[label];
        if (!buddy && control->AccessibleName() == label->AccessibleName()) buddy = &widget;
    }
    for (const auto& [label, buddy] : labelled) ViewOf(*label)->SetBuddy(buddy);
}

void DialogView::OnControl(Control& control, ControlChange change) {
    ControlView* const view = ViewOf(control);
    if (!view) return;
    view->Show(change);
    if (change == ControlChange::name) Relate();
    if (change != ControlChange::text || control.Kind() != ControlKind::static_text) return;
    for (const auto& [other, other_view] : m_controls) {
        if (other != &control && m_dialog.LabelOf(*other) == &control) other_view->Show(ControlChange::name);
    }
}

void DialogView::InvalidateControl(Control& control, bool now) {
    if (ControlView* const view = ViewOf(control)) view->Repaint(now);
}

void DialogView::OnFocus() {
    if (const Control* const control = m_dialog.Focused()) {
        if (ControlView* const view = ViewOf(*control)) view->Widget().setFocus(Qt::OtherFocusReason);
    } else if (QWidget* const widget = QApplication::focusWidget();
               widget && widget->parentWidget() == &Widget()) {
        widget->clearFocus();
    }
}

void DialogView::OnDefaultButton() {
    for (const auto& [control, view] : m_controls) {
        if (control->Kind() == ControlKind::button) view->ShowDefault();
    }
}

}  // namespace hx::ui
