#include "PanelView/PetHead.h"

#include "Drawing/Qt/Conversions.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace mimkins {

namespace {

/// The colours of one pet, as its seed and the theme give them.
struct Coat {
    QColor top;
    QColor bottom;
    QColor limb;
    QColor cheek;

    Coat(std::uint64_t mixed, const PetTheme& theme) {
        const double hue = theme.petHue ? *theme.petHue + static_cast<double>(mixed % 40) / 1000
                                        : static_cast<double>(mixed % 360) / 360;
        const auto shade = [&](double saturation, double brightness) {
            return QColor::fromHsvF(
                static_cast<float>(hue), static_cast<float>(std::min(saturation * theme.petSaturation, 1.0)),
                static_cast<float>(std::min(brightness * theme.petBrightness, 1.0))
            );
        };
        top = shade(0.45, 0.97);
        bottom = shade(0.6, 0.82);
        limb = theme.petOutline ? qt::color(*theme.petOutline) : shade(0.6, 0.68);
        cheek = QColor(255, 110, 130, 90);
    }
};

const QColor ink(26, 26, 26);
constexpr double leftEye = 36;
constexpr double rightEye = 64;
constexpr double eyeLevel = 54;

void oval(QPainter& painter, double x, double y, double width, double height) {
    painter.drawEllipse(QRectF(x - width / 2, y - height / 2, width, height));
}

void arc(QPainter& painter, double x, double y, double width, double depth) {
    QPainterPath path;
    path.moveTo(x - width / 2, y);
    path.quadTo(x, y + 2 * depth, x + width / 2, y);
    painter.drawPath(path);
}

void drawBody(QPainter& painter, const Coat& coat, std::uint64_t mixed) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(coat.limb);
    const double tilt = 6 + static_cast<double>(mixed / 360 % 4) * 3;
    for (const double side : {-1.0, 1.0}) {
        painter.save();
        painter.translate(50 + side * 24, 26);
        painter.rotate(side * tilt);
        painter.drawRoundedRect(QRectF(-8, -18, 16, 30), 8, 8);
        painter.restore();
        oval(painter, 50 + side * 17, 90, 20, 12);
    }
    QLinearGradient fur(50, 18, 50, 92);
    fur.setColorAt(0, coat.top);
    fur.setColorAt(1, coat.bottom);
    painter.setBrush(fur);
    painter.drawRoundedRect(QRectF(12, 20, 76, 70), 33, 32);
    painter.setBrush(QColor(255, 255, 255, 46));
    oval(painter, 38, 31, 30, 11);
    painter.setBrush(coat.cheek);
    oval(painter, 24, 67, 13, 8);
    oval(painter, 76, 67, 13, 8);
}

void strokeInk(QPainter& painter, double width) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void openEyes(QPainter& painter, double height, double lookX, double lookY) {
    painter.setPen(Qt::NoPen);
    for (const double x : {leftEye, rightEye}) {
        painter.setBrush(ink);
        oval(painter, x + lookX, eyeLevel + lookY, 11, height);
        painter.setBrush(Qt::white);
        oval(painter, x + lookX + 2, eyeLevel + lookY - height * 0.22, 4, 4);
    }
}

void lidEyes(QPainter& painter, double depth) {
    strokeInk(painter, 4);
    arc(painter, leftEye, eyeLevel, 13, depth);
    arc(painter, rightEye, eyeLevel, 13, depth);
}

void crossEyes(QPainter& painter) {
    strokeInk(painter, 4);
    for (const double x : {leftEye, rightEye}) {
        painter.drawLine(QPointF(x - 5, eyeLevel - 5), QPointF(x + 5, eyeLevel + 5));
        painter.drawLine(QPointF(x - 5, eyeLevel + 5), QPointF(x + 5, eyeLevel - 5));
    }
}

void brows(QPainter& painter, double inner, double outer) {
    strokeInk(painter, 3.5);
    painter.drawLine(QPointF(leftEye - 8, eyeLevel - outer), QPointF(leftEye + 7, eyeLevel - inner));
    painter.drawLine(QPointF(rightEye - 7, eyeLevel - inner), QPointF(rightEye + 8, eyeLevel - outer));
}

void drawEyes(QPainter& painter, Mood mood) {
    switch (mood) {
    case Mood::working:
    case Mood::compacting:
        openEyes(painter, 14, 0, 3);
        brows(painter, 13, 15);
        break;
    case Mood::snag:
        crossEyes(painter);
        break;
    case Mood::stuck:
        openEyes(painter, 13, 3, -2);
        brows(painter, 16, 11);
        break;
    case Mood::done:
    case Mood::idle:
        lidEyes(painter, 3);
        break;
    case Mood::yourTurn:
    case Mood::commitWaiting:
        lidEyes(painter, -4);
        break;
    case Mood::background:
        openEyes(painter, 15, 4, 0);
        break;
    case Mood::needsPermission:
    case Mood::needsInput:
    case Mood::question:
    case Mood::plan:
        openEyes(painter, 19, 0, -1);
        break;
    }
}

void drawMouth(QPainter& painter, Mood mood) {
    strokeInk(painter, 3.5);
    if (waitsOnUser(mood)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        oval(painter, 50, 73, 9, 10);
    } else if (mood == Mood::snag || mood == Mood::stuck) {
        arc(painter, 50, 75, 12, -3);
    } else if (mood == Mood::working || mood == Mood::compacting) {
        painter.drawLine(QPointF(46, 72), QPointF(54, 72));
    } else {
        arc(painter, 50, 69, 14, 4);
    }
}

} // namespace

void PetHead::draw(QPainter& painter, const QRectF& square, const PetTheme& theme) const {
    const std::uint64_t mixed = (shuffle * 0x9e3779b97f4a7c15U) ^ seed;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / 100, square.height() / 100);
    drawBody(painter, Coat(mixed, theme), mixed);
    if (eyesShut) {
        lidEyes(painter, 3);
    } else {
        drawEyes(painter, mood);
    }
    drawMouth(painter, mood);
    painter.restore();
}

} // namespace mimkins
