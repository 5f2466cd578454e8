// What shows one window: a widget of its own, in that of its parent or by itself on the screen. A dialog's
// view has the views of its controls in it. On the thread of the user interface.
#pragma once

#include <map>

#include "platform/ui/qt/control_view.h"
#include "platform/ui/renderer.h"
#include "platform/ui/window.h"

namespace hx::ui {

class WindowWidget;

class WindowView : public IWindowView {
public:
    explicit WindowView(Window& window);
    ~WindowView() override;

    QWidget& Widget() const;

    void OnMoved() override;
    void OnShown() override;
    void OnCaption() override;
    void OnAccessibleName() override;
    void Invalidate(bool now) override;
    void OnControl(Control& /*control*/, ControlChange /*change*/) override {}
    void InvalidateControl(Control& /*control*/, bool /*now*/) override {}
    void OnFocus() override {}
    void OnDefaultButton() override {}

    // Null for one that is not created.
    static WindowView* Of(const Window* window);

protected:
    Window& m_window;

private:
    WindowWidget* const m_widget;
};

class DialogView final : public WindowView {
public:
    explicit DialogView(Dialog& dialog);
    ~DialogView() override;

    // Null if it is none of the dialog's.
    ControlView* ViewOf(const Control& control) const;
    static ControlView* Of(const Control& control);

    void OnControl(Control& control, ControlChange change) override;
    void InvalidateControl(Control& control, bool now) override;
    void OnFocus() override;
    void OnDefaultButton() override;

private:
    void Relate();

    Dialog& m_dialog;
    std::map<const Control*, ControlView*> m_controls;
};

}  // namespace hx::ui
