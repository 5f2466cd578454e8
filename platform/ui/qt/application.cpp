#include "platform/ui/qt/application.h"

#include <dlfcn.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>

#include "platform/ui/qt/appearance.h"

namespace hx::ui {

namespace {

constexpr wchar_t kNoDisplay[] = L"There is no screen: neither DISPLAY nor WAYLAND_DISPLAY is set.";
constexpr wchar_t kNoServer[] =
    L"There is no screen: nothing that could be used answers at DISPLAY or WAYLAND_DISPLAY.";
constexpr wchar_t kUnknownPlatform[] =
    L"QT_QPA_PLATFORM must name platforms among xcb, wayland, wayland-egl, offscreen, minimal and vnc.";
constexpr wchar_t kNoPlatform[] = L"Nothing that QT_QPA_PLATFORM names is installed and answers.";

// What was connected to find out whether it answers: a server that loses its only client begins anew, and
// refuses those who come meanwhile.
using Held = std::shared_ptr<void>;

// Connects as the toolkit's own plugin does, with the same library: refusals are found, too.
bool AnswersX(Held& held) {
    struct Connection;
    void* const library = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    if (!library) return false;
    const auto function = [library]<class F>(F*& pointer, const char* name) {
        pointer = reinterpret_cast<F*>(dlsym(library, name));
        return pointer != nullptr;
    };
    Connection* (*connect)(const char*, int*) = nullptr;
    int (*has_error)(Connection*) = nullptr;
    void (*disconnect)(Connection*) = nullptr;
    if (!function(connect, "xcb_connect") || !function(has_error, "xcb_connection_has_error") ||
        !function(disconnect, "xcb_disconnect")) {
        return false;
    }
    Connection* const connection = connect(nullptr, nullptr);
    if (!connection) return false;
    held.reset(connection, [disconnect](void* open) { disconnect(static_cast<Connection*>(open)); });
    return has_error(connection) == 0;
}

bool AnswersWayland(Held& /*held*/) {
    const std::string display = qgetenv("WAYLAND_DISPLAY").toStdString();
    if (display.empty()) return false;
    const std::string name =
        display.front() == '/' ? display : qgetenv("XDG_RUNTIME_DIR").toStdString() + "/" + display;
    sockaddr_un address = {};
    if (name.size() >= sizeof address.sun_path) return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.data(), name.size());
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (file < 0) return false;
    const bool answers = connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(file);
    return answers;
}

bool IsThere(Held& /*held*/) {
    return true;
}

// Those of which can be told beforehand whether they work.
struct Platform {
    const char* name;
    const char* plugins;
    bool (*answers)(Held& held);
};
constexpr Platform kPlatforms[] = {
    {"xcb", "libqxcb.so", AnswersX},
    {"wayland", "libqwayland-*.so", AnswersWayland},
    {"wayland-egl", "libqwayland-egl.so", AnswersWayland},
    {"offscreen", "libqoffscreen.so", IsThere},
    {"minimal", "libqminimal.so", IsThere},
    {"vnc", "libqvnc.so", IsThere},
};

bool IsInstalled(const Platform& platform) {
    QStringList folders = QString::fromLocal8Bit(qgetenv("QT_QPA_PLATFORM_PLUGIN_PATH")).split(u':');
    for (const QString& path : QCoreApplication::libraryPaths())
        folders << path + QStringLiteral("/platforms");
    for (const QString& folder : folders) {
        if (folder.isEmpty()) continue;
        for (const QFileInfo& file : QDir(folder).entryInfoList({QString::fromLatin1(platform.plugins)})) {
            if (QPluginLoader(file.filePath()).load()) return true;
        }
    }
    return false;
}

// The toolkit ends the process if it finds no screen, so it is asked only if there is one. Null if so.
const wchar_t* WhyNoScreen(Held& held) {
    const QByteArray wanted = qgetenv("QT_QPA_PLATFORM");
    if (wanted.isEmpty() && qgetenv("DISPLAY").isEmpty() && qgetenv("WAYLAND_DISPLAY").isEmpty()) {
        return kNoDisplay;
    }
    // Each is tried, and may have options.
    bool works = false;
    for (const QByteArray& entry : (wanted.isEmpty() ? QByteArray("xcb;wayland") : wanted).split(';')) {
        const QByteArray name = entry.split(':').first();
        const auto* const platform =
            std::find_if(std::begin(kPlatforms), std::end(kPlatforms),
                         [&name](const Platform& known) { return name == known.name; });
        if (platform == std::end(kPlatforms)) return kUnknownPlatform;
        works = works || (platform->answers(held) && IsInstalled(*platform));
    }
    if (works) return nullptr;
    return wanted.isEmpty() ? kNoServer : kNoPlatform;
}

// The toolkit writes to standard error if nobody has said where its run-time files go, though it has none
// without a screen.
void SetRuntimeFolder() {
    constexpr const char* kVariable = "XDG_RUNTIME_DIR";
    if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen") || qEnvironmentVariableIsSet(kVariable)) return;
    constexpr mode_t kOwnerOnly = 0700;
    const QByteArray folder =
        QFile::encodeName(QDir::tempPath()) + "/runtime-" + QByteArray::number(getuid());
    struct stat status = {};
    mkdir(folder.constData(), kOwnerOnly);
    const bool ours = lstat(folder.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
                      status.st_uid == getuid() && (status.st_mode & 0777) == kOwnerOnly;
    if (ours) qputenv(kVariable, folder);
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

// How large the dialog is on a screen at 100 %, with its caption.
QSize PixelsOf(const DialogRoom& room) {
    constexpr int kCaptionHeight = 32;
    const FontUnits units = UnitsOf(DialogFontOf(room.font_points));
    return {room.units.width * units.average_width / 4,
            room.units.height * units.height / 8 + kCaptionHeight};
}

// The toolkit reads its scale when an application object is made, and knows the screen only then: so one is
// made to look at the screen, and goes again.
void FitScale(const ScreenOptions& options) {
    constexpr double kStep = 0.25;
    constexpr const char* kVariable = "QT_SCALE_FACTOR";
    int count = 1;
    char name[] = "hx";
    char* arguments[] = {name, nullptr};
    const QApplication probe(count, arguments);
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (!screen) return;
    const double asked = screen->devicePixelRatio();
    const QSizeF pixels = QSizeF(screen->availableGeometry().size()) * asked;
    const QSizeF needed = PixelsOf(options.room);
    const auto fits = [&](double scale) {
        return needed.width() * scale <= pixels.width() && needed.height() * scale <= pixels.height();
    };
    if (fits(asked) || asked <= 1) return;
    double scale = (std::ceil(asked / kStep) - 1) * kStep;
    while (scale > 1 && !fits(scale)) scale -= kStep;
    scale = std::max(scale, 1.0);
    bool is_number = false;
    const double factor = qgetenv(kVariable).toDouble(&is_number);
    qputenv(kVariable, QByteArray::number((is_number ? factor : 1) * scale / asked, 'g', 6));
    if (options.scaled_down) options.scaled_down(scale);
}

}  // namespace

bool StartApplication(const ScreenOptions& options, std::wstring& reason) {
    if (!QCoreApplication::instance()) {
        Held held;  // until the application is connected
        if (options.offscreen) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        } else if (const wchar_t* const why = WhyNoScreen(held)) {
            reason = why;
            return false;
        }
        if (options.scale > 0) {
            qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale, 'g', 6));
        }
        SetRuntimeFolder();
        if (!options.offscreen && options.room.units.width > 0) FitScale(options);
        MakeApplication();
    } else if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        reason = L"The host's application object is one without widgets.";
        return false;
    }
    // A picture looks the same wherever it is made.
    if (options.offscreen || options.dark) UseOwnAppearance(options.dark.value_or(false));
    return true;
}

}  // namespace hx::ui
