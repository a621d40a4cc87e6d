#include "PanelView/CardPill.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/ReturnKey.h"

#include <QKeyEvent>

#include <algorithm>

namespace mimkins {

namespace {

constexpr double presenceGrain = 0.01;
constexpr double leastScale = 0.6;
constexpr double ringWidth = 1.5;

} // namespace

CardPill::CardPill(QWidget* card) : QAbstractButton(card) {
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    presence_.setGrain(presenceGrain);
}

void CardPill::present(const std::optional<SubtasksPill>& pill) {
    presence_.setTarget(pill ? 1 : 0);
    setVisible(pill.has_value());
    if (pill) {
        setToolTip(qt::text(pill->toolTip));
        setAccessibleName(qt::text(pill->toolTip));
        setAccessibleDescription(qt::text(pill->count.value_or("0") + " running"));
    }
}

void CardPill::setPicture(const Chip& chip, const QRectF& place) {
    chip_ = chip;
    const double height = std::min(chip.size().height(), place.height());
    place_ = {place.left(), place.center().y() - height / 2, place.width(), height};
}

void CardPill::draw(QPainter& painter, double opacity, const Color& ring) const {
    const double presence = std::clamp(presence_.value(), 0.0, 1.0);
    if (presence <= 0) {
        return;
    }
    painter.save();
    painter.setOpacity(opacity * presence);
    const double scale = leastScale + (1 - leastScale) * presence;
    const QPointF middle = place_.center();
    painter.translate(middle);
    painter.scale(scale, scale);
    painter.translate(-middle);
    chip_.draw(painter, place_);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(qt::color(ring), ringWidth));
        const QRectF around = place_.adjusted(-ringWidth, -ringWidth, ringWidth, ringWidth);
        painter.drawRoundedRect(around, around.height() / 2, around.height() / 2);
    }
    painter.restore();
}

void CardPill::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) {
        QAbstractButton::keyPressEvent(event);
    } else if (!pressByReturn(*this, *event)) {
        event->ignore();
    }
}

bool CardPill::event(QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        parentWidget()->update();
    }
    return QAbstractButton::event(event);
}

} // namespace mimkins
