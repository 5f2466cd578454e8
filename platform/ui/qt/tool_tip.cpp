#include "platform/ui/qt/tool_tip.h"

#include <QTextBoundaryFinder>
#include <QTextDocument>

#include "platform/ui/qt/conversions.h"

namespace hx::ui {
namespace {

constexpr int kColumnsOfLine = 60;

// East Asian characters are as wide as two letters. Spaces at the end do not count.
int ColumnsOf(const QString& line) {
    constexpr char16_t kFirstOfTheEast = 0x2E80;
    int columns = 0;
    int visible_columns = 0;
    for (const QChar character : line) {
        columns += character.unicode() < kFirstOfTheEast ? 1 : 2;
        if (!character.isSpace()) visible_columns = columns;
    }
    return visible_columns;
}

QString InLines(const QString& text) {
    QString lines;
    QString line;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    qsizetype from = 0;
    for (qsizetype to = finder.toNextBoundary(); to >= 0; from = to, to = finder.toNextBoundary()) {
        const QString piece = text.mid(from, to - from);
        if (!line.isEmpty() && ColumnsOf(line + piece) > kColumnsOfLine) {
            while (line.endsWith(QLatin1Char(' '))) line.chop(1);
            lines += line + QLatin1Char('\n');
            line.clear();
        }
        line += piece;
        if (line.endsWith(QLatin1Char('\n'))) {
            lines += line;
            line.clear();
        }
    }
    return lines + line;
}

}  // namespace

QString ToolTipText(std::wstring_view text) {
    QString lines = InLines(ToQt(text));
    if (!Qt::mightBeRichText(lines)) return lines;
    return QStringLiteral("<qt>") + lines.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")) +
           QStringLiteral("</qt>");
}

}  // namespace hx::ui
