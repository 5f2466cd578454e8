// Between the toolkit's values and ours. On the thread of the user interface.
#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <string>
#include <string_view>

#include "platform/ui/geometry.h"
#include "platform/ui/painter.h"

namespace hx::ui {

inline QString ToQt(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::wstring FromQt(const QString& text) {
    return text.toStdWString();
}

// The toolkit counts units of UTF-16, we count characters.
inline int ToQtPosition(std::wstring_view text, size_t position) {
    return static_cast<int>(ToQt(text.substr(0, position)).size());
}
inline size_t FromQtPosition(const QString& text, int position) {
    return FromQt(text.left(position)).size();
}

inline QPoint ToQt(Point point) {
    return {point.x, point.y};
}
inline QRect ToQt(const Rectangle& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.Width(), rectangle.Height()};
}
inline Rectangle FromQt(const QRect& rectangle) {
    return {rectangle.x(), rectangle.y(), rectangle.x() + rectangle.width(),
            rectangle.y() + rectangle.height()};
}

inline QColor ToQt(Colour colour) {
    return {colour.red, colour.green, colour.blue};
}
inline Colour FromQt(const QColor& colour) {
    return {static_cast<uint8_t>(colour.red()), static_cast<uint8_t>(colour.green()),
            static_cast<uint8_t>(colour.blue())};
}

}  // namespace hx::ui
