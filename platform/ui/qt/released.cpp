#include "platform/ui/qt/released.h"

#include <QCoreApplication>
#include <QDialog>
#include <QMenu>
#include <QPointer>
#include <utility>
#include <vector>

#include "platform/system/never_destroyed.h"

namespace hx::ui {

namespace {

struct Released {
    std::vector<QPointer<QWidget>> widgets;
    int calls = 0;
    bool asked = false;  // for an event that deletes them
};

Released& All() {
    static NeverDestroyed<Released> released;
    return *released;
}

// Whoever has just left a call may still be called by an event of the toolkit's: they go with the next one.
void AskToDelete() {
    Released& all = All();
    if (all.calls > 0 || all.asked || all.widgets.empty() || !QCoreApplication::instance()) return;
    all.asked =
        QMetaObject::invokeMethod(QCoreApplication::instance(), DeleteReleasedWidgets, Qt::QueuedConnection);
}

}  // namespace

InCall::InCall() {
    ++All().calls;
}

InCall::~InCall() {
    --All().calls;
    AskToDelete();
}

bool InCall::Any() {
    return All().calls > 0;
}

void ReleaseWidget(QWidget& widget) {
    All().widgets.emplace_back(&widget);
    const InCall call;
    for (QDialog* const box : widget.findChildren<QDialog*>()) box->reject();
    for (QMenu* const menu : widget.findChildren<QMenu*>()) menu->close();
    widget.hide();
    widget.setEnabled(false);
    widget.setParent(nullptr);
}

void DeleteReleasedWidgets() {
    Released& all = All();
    all.asked = false;
    if (all.calls > 0) return;
    for (const QPointer<QWidget>& widget : std::exchange(all.widgets, {})) delete widget.data();
}

}  // namespace hx::ui
