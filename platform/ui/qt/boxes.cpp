#include "platform/ui/qt/boxes.h"

#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <algorithm>

#include "platform/ui/qt/conversions.h"

namespace hx::ui {

namespace {

// What is more does not fit a screen; it can be unfolded.
constexpr qsizetype kMostCharacters = 1200;
constexpr qsizetype kMostLines = 20;
constexpr int kLongestWord = 60;

// Words that are longer than a box is wide may be broken.
QString Breakable(const QString& text) {
    constexpr QChar kMayBreakHere(0x200B);
    QString breakable;
    int in_word = 0;
    for (const QChar character : text) {
        in_word = character.isSpace() ? 0 : in_word + 1;
        if (in_word > kLongestWord && !character.isLowSurrogate()) {
            breakable += kMayBreakHere;
            in_word = 1;
        }
        breakable += character;
    }
    return breakable;
}

// All of it, if it is not too long.
QString Beginning(const QString& text) {
    qsizetype end = std::min(text.size(), kMostCharacters);
    qsizetype lines = 0;
    for (qsizetype i = 0; i < end; ++i) {
        if (text[i] == u'\n' && ++lines == kMostLines) end = i;
    }
    if (end == text.size()) return text;
    if (text[end - 1].isHighSurrogate()) --end;
    return text.left(end) + QChar(0x2026);
}

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::none:
            return QMessageBox::NoIcon;
        case BoxIcon::information:
            return QMessageBox::Information;
        case BoxIcon::warning:
            return QMessageBox::Warning;
        case BoxIcon::error:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

void RunMessageBox(QWidget* owner, const QString& caption, const QString& text, BoxIcon icon) {
    // The owner may go while it is open, and takes the box along.
    const QPointer<QMessageBox> box = new QMessageBox(owner);
    box->setIcon(IconOf(icon));
    box->setWindowTitle(caption.isEmpty() ? QGuiApplication::applicationDisplayName() : caption);
    box->setTextFormat(Qt::PlainText);
    box->setStandardButtons(QMessageBox::Ok);
    const QString beginning = Beginning(text);
    box->setText(Breakable(beginning));
    if (beginning != text) box->setDetailedText(text);
    box->exec();
    if (box) box->deleteLater();
}

uint32_t RunMenuOf(QWidget& owner, Point where, const std::vector<MenuLine>& lines) {
    // The owner may go while it is open, and takes the menu along.
    const QPointer<QMenu> menu = new QMenu(&owner);
    for (const MenuLine& line : lines) {
        if (line.separator) {
            menu->addSeparator();
            continue;
        }
        QAction* const action = menu->addAction(ToQt(line.text));
        action->setEnabled(line.enabled);
        action->setData(line.id);
    }
    const QAction* const chosen = menu->exec(owner.mapToGlobal(ToQt(where)));
    if (!menu) return 0;
    const uint32_t id = chosen ? chosen->data().toUInt() : 0;
    menu->deleteLater();
    return id;
}

}  // namespace hx::ui
