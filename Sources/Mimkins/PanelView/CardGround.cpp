#include "PanelView/CardGround.h"

#include "Base/Perf.h"
#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "PanelView/CardLook.h"
#include "PanelView/Chip.h"
#include "Presentation/Accent.h"
#include "Presentation/MoodTint.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

namespace mimkins {

namespace {

constexpr double hoverLift = 0.04;
constexpr double hoverTint = 0.08;
constexpr int shadowSteps = 4;

void strokeInside(QPainter& painter, const QRectF& card, double radius, const QColor& color, double width) {
    const double half = width / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width));
    painter.drawPath(roundedShape(card.adjusted(half, half, -half, -half), radius - half));
}

void drawShadow(QPainter& painter, const QRectF& card, const PetTheme& theme) {
    QPainterPath outside;
    outside.addRect(card.adjusted(-2 * shadowSteps, -2 * shadowSteps, 2 * shadowSteps, 2 * shadowSteps));
    painter.save();
    painter.setClipPath(outside.subtracted(roundedShape(card, theme.radius)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(qt::color(theme.cardShadow.faded(1.0 / shadowSteps)));
    for (int step = 1; step <= shadowSteps; ++step) {
        const QRectF halo = card.adjusted(-step, -step, step, step).translated(0, 2);
        painter.drawPath(roundedShape(halo, theme.radius + step));
    }
    painter.restore();
}

} // namespace

void drawCardGround(
    QPainter& painter, const QRectF& card, const CardRow& row, const CardLook& look, CardStates states
) {
    const PetTheme& theme = *look.theme;
    const Color& mood = tint(theme, row.mood);
    const QPainterPath shape = roundedShape(card, theme.radius);
    if (!row.waiting && theme.cardShadow.opacity > 0 && !perf::off().contains("shadow")) {
        drawShadow(painter, card, theme);
    }
    painter.fillPath(shape, qt::color(theme.cardBase));
    if (states.hovering) {
        painter.fillPath(shape, qt::color(theme.text.faded(hoverLift)));
    }
    QLinearGradient wash(card.topLeft(), card.topRight());
    wash.setColorAt(0, qt::color(mood.faded(theme.cardTint + (states.hovering ? hoverTint : 0))));
    wash.setColorAt(1, qt::color(mood.faded(theme.cardTint * 0.2)));
    painter.fillPath(shape, wash);
    if (theme.stripe) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(qt::color(mood));
        painter.drawRoundedRect(QRectF(card.left() + 5, card.top() + 12, 3, card.height() - 24), 1.5, 1.5);
    }
    if (!row.waiting) {
        strokeInside(painter, card, theme.radius, qt::color(mood.faded(theme.cardStroke)), 1);
    }
    if (states.focused) {
        strokeInside(
            painter, card.adjusted(-3, -3, 3, 3), theme.radius + 3, qt::color(theme.text.faded(0.85)), 2
        );
    }
}

void drawPetPad(QPainter& painter, const QRectF& square, const Color& tint) {
    const double side = square.width();
    painter.save();
    painter.translate(square.center().x(), square.bottom() - side * 0.11 + 4);
    painter.scale(0.94, 0.22);
    QRadialGradient light(QPointF(0, 0), side * 0.5);
    light.setColorAt(0, qt::color(tint.faded(0.45)));
    light.setColorAt(1, qt::color(tint.faded(0)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(QPointF(0, 0), side * 0.5, side * 0.5);
    painter.restore();
}

void drawHighlight(QPainter& painter, const QRectF& card, const CardLook& look) {
    const double radius = look.theme->radius;
    const QColor color = qt::color(accent(*look.theme));
    strokeInside(painter, card, radius, qt::color(accent(*look.theme).faded(0.8)), 3);
    const Chip chip = nextUpChip(look);
    const QSizeF size = chip.size();
    const QRectF tag(card.right() - size.width(), card.top(), size.width(), size.height());
    // The card's own corner cuts the tag; the opposite one is rounded.
    QPainterPath shape;
    const double corner = size.height() / 2;
    shape.addRoundedRect(tag.adjusted(0, -corner, corner, 0), corner, corner);
    QPainterPath square;
    square.addRect(tag);
    painter.fillPath(shape.intersected(square).intersected(roundedShape(card, radius)), color);
    chip.draw(painter, tag);
}

} // namespace mimkins
