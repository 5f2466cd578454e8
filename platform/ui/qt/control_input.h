// What a person does to a control of any kind, before its widget gets it: keys of the dialog, the focus, the
// right button, the wheel. Lives as long as the widget. On the thread of the user interface.
#pragma once

#include <QFocusEvent>
#include <QKeyEvent>
#include <QObject>

#include "platform/ui/qt/control_view.h"

namespace hx::ui {

class ControlInput final : public QObject {
public:
    explicit ControlInput(ControlView& view);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool OnKey(const QKeyEvent& event);
    // Whether a key is ours before anything of the host's gets it.
    bool Wants(const QKeyEvent& event) const;
    void OnFocus(const QFocusEvent& event);

    ControlView& m_view;
};

}  // namespace hx::ui
