#include "platform/ui/qt/qt_renderer.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QEventLoop>
#include <QPixmap>
#include <QScreen>
#include <filesystem>

#include "platform/system/files.h"
#include "platform/ui/codes.h"
#include "platform/ui/qt/appearance.h"
#include "platform/ui/qt/boxes.h"
#include "platform/ui/qt/conversions.h"
#include "platform/ui/qt/window_view.h"

namespace hx::ui {

std::unique_ptr<IWindowView> QtRenderer::MakeView(Window& window) {
    if (Dialog* const dialog = window.AsDialog()) return std::make_unique<DialogView>(*dialog);
    return std::make_unique<WindowView>(window);
}

void QtRenderer::RunModal(Dialog& dialog) {
    QWidget& widget = WindowView::Of(&dialog)->Widget();
    // Whether it is modal is settled when it is shown.
    widget.hide();
    widget.setWindowModality(Qt::ApplicationModal);
    widget.show();
    m_pump.Wake();
    QEventLoop loop;
    const auto is_open = [&dialog, handle = dialog.Handle()] {
        return Window::FromHandle(handle) == &dialog && !dialog.HasEnded();
    };
    // Whatever ends the dialog is an event: it is looked for before the loop waits, and when it is woken.
    // Told once: a loop inside this one would be woken by it again and again.
    const auto look = [&is_open, &loop, told = false]() mutable {
        if (told || is_open()) return;
        told = true;
        loop.quit();
    };
    const QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &loop, look);
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &loop, look);
    if (is_open()) loop.exec();
    // Still open, if the application is being ended.
    if (is_open()) dialog.EndDialog(static_cast<int32_t>(IDCANCEL));
}

void QtRenderer::ShowMessageBox(Window* owner, const std::wstring& caption, const std::wstring& text,
                                BoxIcon icon) {
    m_pump.Wake();
    const WindowView* const view = WindowView::Of(owner);
    RunMessageBox(view ? view->Widget().window() : nullptr, ToQt(caption), ToQt(text), icon);
}

uint32_t QtRenderer::RunMenu(Window& owner, Point where, const std::vector<MenuLine>& lines) {
    m_pump.Wake();
    const WindowView* const view = WindowView::Of(&owner);
    return view ? RunMenuOf(view->Widget(), where, lines) : 0;
}

FontUnits QtRenderer::DialogFont(const std::wstring& /*face*/, uint32_t points) const {
    return UnitsOf(DialogFontOf(points));
}

Size QtRenderer::TextExtent(std::wstring_view text) const {
    return ExtentOf(DialogFontOf(kDialogPoints), text);
}

Colour QtRenderer::ColourOf(SystemColour colour) const {
    return ColourIn(QApplication::palette(), colour);
}

Rectangle QtRenderer::WorkArea(const Rectangle& window) const {
    const QRect place = ToQt(window);
    const auto shown = [&place](const QScreen* screen) {
        const QSize common = screen->availableGeometry().intersected(place).size();
        return common.isEmpty() ? 0 : int64_t{common.width()} * common.height();
    };
    const QScreen* best = QGuiApplication::primaryScreen();
    for (const QScreen* const screen : QGuiApplication::screens()) {
        if (!best || shown(screen) > shown(best)) best = screen;
    }
    return best ? FromQt(best->availableGeometry()) : Rectangle();
}

// Of our pixels, which are larger on the screen if it is scaled.
int32_t QtRenderer::VerticalDotsPerInch() const {
    return 96;
}

std::wstring QtRenderer::Name() const {
    return L"Qt " + FromQt(QString::fromLatin1(qVersion()));
}

void QtRenderer::ShowWaitCursor(bool shown) {
    if (shown) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

// Some desktops take nothing from a program that has not the focus, and say nothing of it.
bool QtRenderer::CopyToClipboard(const std::wstring& text) {
    QClipboard* const clipboard = QGuiApplication::clipboard();
    const QString copied = ToQt(text);
    clipboard->setText(copied);
    return clipboard->text() == copied;
}

void QtRenderer::DiscardMouseMessages() {
    m_user.DropQueued();
    m_pump.DiscardMouse();
}

void QtRenderer::Pump() {
    do {
        m_pump.Run();
    } while (m_user.DoQueued() > 0);
}

bool QtRenderer::SavePicture(Window& window, const std::wstring& file_name) {
    const WindowView* const view = WindowView::Of(&window);
    if (!view) return false;
    QBuffer buffer;
    const QPixmap picture = view->Widget().grab();
    if (picture.isNull() || !buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "PNG")) return false;
    const std::string_view bytes(buffer.data().constData(), static_cast<size_t>(buffer.data().size()));
    return !WriteFileAtomically(std::filesystem::path(file_name), bytes);
}

}  // namespace hx::ui
