// What shows one control: each kind is a widget of the toolkit that is also this. It shows the control's
// state and owns none: what a person does goes to the control, which tells the dialog and its views what came
// of it. On the thread of the user interface.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/ui/control.h"

namespace hx::ui {

class ControlView {
public:
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    // The widget belongs to `parent` until it is released.
    static ControlView* Make(Control& control, QWidget& parent);
    // The control is shown no more; the widget goes as released ones do.
    void Release();

    QWidget& Widget() const { return *m_widget; }
    // What in it gets the mouse and paints.
    virtual QWidget& Surface() const { return *m_widget; }
    // Null once released: whoever has told the control something may find that.
    Control* Model() const { return m_control; }

    // All of it at first, or what has changed.
    void ShowAll();
    void Show(ControlChange change);
    virtual void Repaint(bool now);
    // Of a label: the widget that it stands for.
    virtual void SetBuddy(QWidget* /*buddy*/) {}
    virtual void ShowDefault() {}
    // What a person did and the control was not told of yet: before anything else that he does.
    virtual void TellWaiting() {}

protected:
    ControlView(Control& control, QWidget& widget);
    ~ControlView() = default;

    // Of the kind: text, value, range, items, selection, style.
    virtual void ShowOwn(ControlChange /*change*/) {}
    virtual QRect Place() const;
    // Whether something is shown by the program now, and not entered by a person.
    bool IsShowing() const { return m_showing; }

private:
    friend class ControlInput;
    void ShowCommon(ControlChange change);

    Control* m_control;
    QWidget* const m_widget;
    bool m_showing = false;
};

// One function for each kind of control.
ControlView* MakeStaticView(Control& control, QWidget& parent);
ControlView* MakeButtonView(Control& control, QWidget& parent);
ControlView* MakeCheckBoxView(Control& control, QWidget& parent);
ControlView* MakeEditView(Control& control, QWidget& parent);
ControlView* MakeComboBoxView(Control& control, QWidget& parent);
ControlView* MakeListBoxView(Control& control, QWidget& parent);
ControlView* MakeTrackBarView(Control& control, QWidget& parent);
ControlView* MakeComponentView(Control& control, QWidget& parent);

}  // namespace hx::ui
