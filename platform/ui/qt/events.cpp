#include "platform/ui/qt/events.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

namespace hx::ui {

void SendKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
    const QPointer<QWidget> still_there = &widget;
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &down);
    if (!still_there) return;
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &up);
}

void SendButton(QWidget& widget, QPoint where, Qt::MouseButton button, bool down) {
    QMouseEvent event(down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, QPointF(where),
                      QPointF(widget.mapToGlobal(where)), button, down ? button : Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void SendClick(QWidget& widget, QPoint where, Qt::MouseButton button) {
    const QPointer<QWidget> still_there = &widget;
    SendButton(widget, where, button, true);
    if (still_there) SendButton(widget, where, button, false);
}

void SendWheel(QWidget& widget, int notches) {
    constexpr int kNotch = 120;
    const QPoint where = widget.rect().center();
    QWheelEvent event(QPointF(where), QPointF(widget.mapToGlobal(where)), {}, {0, notches * kNotch},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

}  // namespace hx::ui
