// When widgets that show nothing any more may go: not while one of ours handles an event, or page code is
// called, further up the stack, however many event loops run in between. On the thread of the user interface.
#pragma once

#include <QEvent>
#include <QWidget>

namespace hx::ui {

// For as long as it lives, something of a widget or a page is on the stack.
class InCall {
public:
    InCall();
    InCall(const InCall&) = delete;
    InCall& operator=(const InCall&) = delete;
    ~InCall();

    static bool Any();
};

// Hidden, disabled and without a parent at once; deleted by an event loop that runs in no call. Boxes and
// menus in front of it are closed.
void ReleaseWidget(QWidget& widget);
// Nothing in a call.
void DeleteReleasedWidgets();

// The toolkit's widget, of which every event is a call.
template <class Base>
class CallingWidget : public Base {
public:
    using Base::Base;

protected:
    bool event(QEvent* event) override {
        const InCall call;
        return Base::event(event);
    }
};

}  // namespace hx::ui
