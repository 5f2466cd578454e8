#include "platform/ui/qt/message_pump.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QThread>
#include <memory>
#include <utility>
#include <vector>

#include "platform/ui/qt/events.h"
#include "platform/ui/qt/released.h"

namespace hx::ui {

namespace {

// Swallows what the mouse did, and keeps what was typed, or taken by a widget, for later.
class MouseSwallower final : public QObject {
public:
    MouseSwallower() { qApp->installEventFilter(this); }
    ~MouseSwallower() override {
        for (auto& [receiver, event] : m_kept) {
            if (receiver) QCoreApplication::postEvent(receiver, event.release());
        }
    }

    bool eventFilter(QObject* receiver, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::MouseMove:
            case QEvent::NonClientAreaMouseButtonPress:
            case QEvent::NonClientAreaMouseButtonRelease:
            case QEvent::NonClientAreaMouseButtonDblClick:
            case QEvent::NonClientAreaMouseMove:
            case QEvent::Wheel:
            case QEvent::ContextMenu:
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd:
            case QEvent::TabletPress:
            case QEvent::TabletMove:
            case QEvent::TabletRelease:
            case QEvent::Shortcut:
                return true;
            case QEvent::ShortcutOverride:
                // It comes as a key that is typed then.
                event->accept();
                return true;
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
                m_kept.emplace_back(receiver, std::unique_ptr<QEvent>(event->clone()));
                return true;
            default:
                // What a widget has taken already waits, too.
                if (event->type() != kTellWaiting) return false;
                m_kept.emplace_back(receiver, std::unique_ptr<QEvent>(event->clone()));
                return true;
        }
    }

private:
    std::vector<std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>> m_kept;
};

void OnMessageArrived(void* context) {
    MessagePump* const pump = static_cast<MessagePump*>(context);
    pump->Wake();
}

}  // namespace

MessagePump::MessagePump() : m_before(SetMessageHook({OnMessageArrived, this})) {
    Wake();
}

MessagePump::~MessagePump() {
    SetMessageHook(m_before);
}

void MessagePump::Wake() {
    if (m_woken.exchange(true)) return;
    try {
        QMetaObject::invokeMethod(
            &m_receiver, [this] { Dispatch(); }, Qt::QueuedConnection);
    } catch (...) {
        m_woken = false;
        throw;
    }
}

void MessagePump::Dispatch() {
    m_woken = false;
    const InCall call;
    if (!m_held) DispatchWaitingMessages();
}

void MessagePump::Run() {
    constexpr int kRounds = 100;  // whoever posts to himself for ever does not hold up the caller
    for (int round = 0; round < kRounds; ++round) {
        const size_t dispatched = DispatchWaitingMessages();
        QCoreApplication::processEvents();
        if (dispatched == 0 && round > 0) break;
    }
    if (InCall::Any()) return;
    DeleteReleasedWidgets();
    // Boxes that were closed outside any event are deleted by no loop of events.
    if (QThread::currentThread()->loopLevel() == 0) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void MessagePump::DiscardMouse() {
    const bool was_held = std::exchange(m_held, true);
    {
        const MouseSwallower swallower;
        QCoreApplication::processEvents();
    }
    m_held = was_held;
    Wake();
}

}  // namespace hx::ui
