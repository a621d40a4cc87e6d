#include "SettingsView/ControlDrawing.h"

#include "Drawing/Contrast.h"
#include "Drawing/Qt/Conversions.h"
#include "Presentation/Accent.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace mimkins::controls {

CardLook plainLook() {
    return {&PetTheme::nightSky(), Typography(FontDesign::standard, 1), 62, {}};
}

int scaled(const CardLook& look, double points) {
    return static_cast<int>(std::lround(points * look.typography.scale()));
}

double radius(const CardLook& look) {
    return std::clamp(look.theme->radius * 0.5, 3.0, 8.0);
}

QColor primary(const CardLook& look, double opacity) {
    return qt::color(Color::named(NamedColor::primary, opacity).resolved(look.scheme()));
}

QColor accent(const CardLook& look) {
    return qt::color(controlAccent(*look.theme));
}

QColor inkOnAccent(const CardLook& look) {
    return qt::color(inkOn(controlAccent(*look.theme), 0.85));
}

QColor knobOnAccent(const CardLook& look) {
    constexpr double leastContrast = 3;
    const bool isTold = contrast(controlAccent(*look.theme), Color::white()) >= leastContrast;
    return isTold ? QColor(Qt::white) : inkOnAccent(look);
}

QColor ground(const CardLook& look, Press press) {
    const double lift = press.down ? 0.2 : press.hovers ? 0.14 : 0.08;
    return qt::color(look.theme->text.faded(lift));
}

void fillRounded(QPainter& painter, const QRectF& area, double radius, const QColor& color) {
    const double most = std::min(area.width(), area.height()) / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(area, std::min(radius, most), std::min(radius, most));
}

void strokeRounded(QPainter& painter, const QRectF& area, double radius, const QPen& pen) {
    const double half = pen.widthF() / 2;
    const QRectF line = area.adjusted(half, half, -half, -half);
    const double most = std::min(line.width(), line.height()) / 2;
    const double inner = std::clamp(radius - half, 0.0, most);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(pen);
    painter.drawRoundedRect(line, inner, inner);
}

void drawFocusRing(QPainter& painter, const QRectF& area, double radius, const CardLook& look) {
    strokeRounded(painter, area, radius, QPen(qt::color(look.theme->text.faded(0.85)), 1.5));
}

int widthOf(const QString& words, const QFont& font) {
    return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(words)));
}

} // namespace mimkins::controls
