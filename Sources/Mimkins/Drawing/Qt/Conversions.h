#pragma once

#include "Drawing/Color.h"
#include "Drawing/Geometry.h"

#include <QColor>
#include <QRectF>
#include <QString>

#include <string>
#include <string_view>

/// The drawing values as Qt's own.
namespace mimkins::qt {

inline QColor color(const Color& value) {
    return QColor::fromRgbF(
        static_cast<float>(value.red), static_cast<float>(value.green), static_cast<float>(value.blue),
        static_cast<float>(value.opacity)
    );
}

inline QRectF rect(const Rect& value) {
    return {value.x, value.y, value.width, value.height};
}

inline Rect rect(const QRectF& value) {
    return {value.x(), value.y(), value.width(), value.height()};
}

inline QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace mimkins::qt
