// Events as the machine's keyboard and mouse cause them. The widget may go while it handles one. On the
// thread of the user interface.
#pragma once

#include <QEvent>
#include <QPoint>
#include <QString>
#include <QWidget>

namespace hx::ui {

// Posted by a widget to itself behind everything that has arrived: it is told what input came to by then.
inline constexpr auto kTellWaiting = static_cast<QEvent::Type>(QEvent::User + 1);

// Down and up again.
void SendKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             const QString& text = {});
void SendClick(QWidget& widget, QPoint where, Qt::MouseButton button = Qt::LeftButton);
void SendButton(QWidget& widget, QPoint where, Qt::MouseButton button, bool down);
void SendWheel(QWidget& widget, int notches);

}  // namespace hx::ui
