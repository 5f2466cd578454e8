#include "platform/ui/qt/application.h"

#include <QApplication>
#include <QStyleFactory>

#include "platform/ui/qt/appearance.h"

namespace hx::ui {

namespace {

// The toolkit ends the process if it finds no screen, so it is not asked.
bool HasScreen() {
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && !platform.startsWith("xcb") && !platform.startsWith("wayland")) return true;
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void MakeApplication() {
    static int count = 1;
    static char name[] = "hx";
    static char* arguments[] = {name, nullptr};
    // Never destroyed: components may hold windows until the process ends, and its destructor needs a state
    // that static objects no longer have then.
    new QApplication(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
}

}  // namespace

bool StartApplication(const ScreenOptions& options, std::wstring& reason) {
    if (!QCoreApplication::instance()) {
        if (options.offscreen) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        } else if (!HasScreen()) {
            reason = L"There is no screen: neither DISPLAY nor WAYLAND_DISPLAY is set.";
            return false;
        }
        if (options.scale > 0) {
            qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale, 'g', 6));
        }
        MakeApplication();
    } else if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        reason = L"The host's application object is one without widgets.";
        return false;
    }
    // A picture looks the same wherever it is made.
    if (options.offscreen || options.dark) {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setPalette(OwnPalette(options.dark.value_or(false)));
    }
    return true;
}

}  // namespace hx::ui
