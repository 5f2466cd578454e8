#include "platform/ui/qt/application.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QApplication>
#include <QStyleFactory>
#include <cstddef>
#include <cstring>

#include "platform/ui/qt/appearance.h"

namespace hx::ui {

namespace {

constexpr wchar_t kNoDisplay[] = L"There is no screen: neither DISPLAY nor WAYLAND_DISPLAY is set.";
constexpr wchar_t kNoServer[] = L"There is no screen: nothing answers at DISPLAY or WAYLAND_DISPLAY.";

// Whether somebody listens at a socket; of an abstract one, the name begins with a zero.
bool Answers(const std::string& name) {
    sockaddr_un address = {};
    if (name.size() >= sizeof address.sun_path) return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.data(), name.size());
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (file < 0) return false;
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    const bool answers = connect(file, reinterpret_cast<const sockaddr*>(&address), length) == 0;
    close(file);
    return answers;
}

bool AnswersX(const std::string& display) {
    // One on another machine may be there.
    if (display.empty() || display.front() != ':') return !display.empty();
    const std::string path = "/tmp/.X11-unix/X" + display.substr(1, display.find('.') - 1);
    return Answers(path) || Answers(std::string(1, '\0') + path);
}

bool AnswersWayland(const std::string& display) {
    if (display.empty()) return false;
    return Answers(display.front() == '/' ? display
                                          : qgetenv("XDG_RUNTIME_DIR").toStdString() + "/" + display);
}

// The toolkit ends the process if it finds no screen, so it is asked only if there is one. Null if so.
const wchar_t* WhyNoScreen() {
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && !platform.startsWith("xcb") && !platform.startsWith("wayland")) return nullptr;
    const std::string x = qgetenv("DISPLAY").toStdString();
    const std::string wayland = qgetenv("WAYLAND_DISPLAY").toStdString();
    if (x.empty() && wayland.empty()) return kNoDisplay;
    return AnswersX(x) || AnswersWayland(wayland) ? nullptr : kNoServer;
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
        } else if (const wchar_t* const why = WhyNoScreen()) {
            reason = why;
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
