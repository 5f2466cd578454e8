#include "platform/ui/qt/qt_painter.h"

#include <QImage>
#include <QPaintDevice>
#include <QPalette>
#include <QPolygonF>

#include "platform/ui/qt/appearance.h"
#include "platform/ui/qt/conversions.h"

namespace hx::ui {

QtPainter::QtPainter(QPainter& painter, const QPalette& palette) : m_painter(painter), m_palette(palette) {
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

Colour QtPainter::ColourOf(SystemColour colour) const {
    return ColourIn(m_palette, colour);
}

Size QtPainter::TextExtent(std::wstring_view text) const {
    return ExtentOf(m_painter.font(), text);
}

double QtPainter::Scale() const {
    return m_painter.device()->devicePixelRatioF();
}

void QtPainter::FillRectangle(const Rectangle& rectangle, Colour colour) {
    m_painter.fillRect(ToQt(rectangle), ToQt(colour));
}

void QtPainter::DrawDottedFrame(const Rectangle& rectangle, Colour colour) {
    if (rectangle.IsEmpty()) return;
    QPen pen(ToQt(colour), 1);
    pen.setDashPattern({1, 1});
    pen.setCapStyle(Qt::FlatCap);
    m_painter.setPen(pen);
    m_painter.setBrush(Qt::NoBrush);
    // Through the middle of the pixels, which are then neither blurred nor doubled.
    m_painter.drawRect(QRectF(ToQt(rectangle)).adjusted(0.5, 0.5, -0.5, -0.5));
}

void QtPainter::DrawEllipse(const Rectangle& rectangle, Colour colour) {
    if (rectangle.IsEmpty()) return;
    m_painter.setPen(QPen(ToQt(colour), 1));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawEllipse(QRectF(ToQt(rectangle)).adjusted(0.5, 0.5, -0.5, -0.5));
}

void QtPainter::DrawLine(FinePoint from, FinePoint to, Colour colour, double width) {
    m_painter.setPen(QPen(ToQt(colour), width));
    m_painter.drawLine(QPointF(from.x, from.y), QPointF(to.x, to.y));
}

void QtPainter::FillPolygon(std::span<const FinePoint> corners, Colour colour) {
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(corners.size()));
    for (const FinePoint& corner : corners) polygon.append(QPointF(corner.x, corner.y));
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(ToQt(colour));
    m_painter.drawPolygon(polygon);
}

void QtPainter::DrawText(const Rectangle& rectangle, std::wstring_view text, const TextStyle& style) {
    int flags = Qt::AlignVCenter | Qt::TextSingleLine;
    flags |= style.alignment == TextAlignment::left     ? Qt::AlignLeft
             : style.alignment == TextAlignment::centre ? Qt::AlignHCenter
                                                        : Qt::AlignRight;
    if (style.expand_tabs) flags |= Qt::TextExpandTabs;
    m_painter.save();
    m_painter.setClipRect(ToQt(rectangle), Qt::IntersectClip);
    m_painter.setPen(ToQt(style.colour));
    m_painter.drawText(ToQt(rectangle), flags, ToQt(text));
    m_painter.restore();
}

void QtPainter::DrawPixels(const Rectangle& rectangle, const Pixels& pixels) {
    if (pixels.width <= 0 || pixels.height <= 0 ||
        pixels.data.size() < static_cast<size_t>(pixels.width) * static_cast<size_t>(pixels.height)) {
        return;
    }
    const QImage image(reinterpret_cast<const uchar*>(pixels.data.data()), pixels.width, pixels.height,
                       QImage::Format_ARGB32);
    m_painter.drawImage(QRectF(ToQt(rectangle)), image);
}

}  // namespace hx::ui
