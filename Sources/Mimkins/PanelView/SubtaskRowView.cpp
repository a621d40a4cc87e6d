#include "PanelView/SubtaskRowView.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "PanelView/AccessibleRole.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mimkins {

namespace {

constexpr double padding = 8;
constexpr double columnGap = 8;
constexpr double leastTextWidth = 40;
constexpr double groundTint = 0.05;

constexpr QRectF petSquare() {
    return {padding, padding, SubtaskRowView::petPoints, SubtaskRowView::petPoints};
}

} // namespace

SubtaskRowView::SubtaskRowView(SubtaskRow row, CardLook look, Date now)
    : row_(std::move(row)), look_(std::move(look)), elapsed_(qt::text(row_.elapsedText(now))), moment_(now) {
    setAccessibleRole(*this, QAccessible::ListItem);
    describe();
}

void SubtaskRowView::describe() {
    setAccessibleName(qt::text(row_.accessibleName()));
    setAccessibleDescription(qt::text(row_.accessibleDescription()));
}

void SubtaskRowView::setRow(const SubtaskRow& row, Date now) {
    if (row_ != row) {
        row_ = row;
        describe();
        refresh();
    }
    setNow(now);
}

void SubtaskRowView::setLook(const CardLook& look) {
    look_ = look;
    refresh();
}

bool SubtaskRowView::setNow(Date now) {
    const QString words = qt::text(row_.elapsedText(now));
    if (words == elapsed_) {
        return false;
    }
    elapsed_ = words;
    refresh();
    return true;
}

void SubtaskRowView::setOpacity(double opacity) {
    if (opacity_ != opacity) {
        opacity_ = opacity;
        update();
    }
}

void SubtaskRowView::animate(Date now) {
    if (moment_ != now) {
        moment_ = now;
        update(petSquare().toAlignedRect());
    }
}

bool SubtaskRowView::isCalm() const {
    return mimkins::isCalm(row_.pet, look_);
}

void SubtaskRowView::refresh() {
    groundIsOld_ = true;
    update();
}

CardText SubtaskRowView::textFor(double width) const {
    const double room = std::max(width - petPoints - columnGap - 2 * padding, leastTextWidth);
    return setSubtaskText(row_, elapsed_, room, look_);
}

CardText SubtaskRowView::text() const {
    return textFor(width());
}

double SubtaskRowView::heightFor(double width) const {
    return std::ceil(std::max(textFor(width).height, petPoints) + 2 * padding);
}

QPointF SubtaskRowView::textCorner(const CardText& text) const {
    const double spare = std::max((petPoints - text.height) / 2, 0.0);
    return {padding + petPoints + columnGap, padding + spare};
}

const Color& SubtaskRowView::stateColor() const {
    switch (row_.state) {
    case SubtaskRow::State::waiting:
        return look_.theme->waiting;
    case SubtaskRow::State::working:
        return look_.theme->working;
    case SubtaskRow::State::done:
        break;
    }
    return look_.theme->subtext;
}

bool SubtaskRowView::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const CardText set = text();
        const auto* placed = set.find(CardText::Badge::model);
        const auto& badge = row_.badges.highlighted ? row_.badges.highlighted : row_.badges.plain;
        const bool over = placed != nullptr && badge &&
                          placed->rect.translated(textCorner(set)).contains(QPointF(help->pos()));
        QToolTip::showText(help->globalPos(), over ? qt::text(badge->toolTip) : QString(), this);
        return true;
    }
    return QWidget::event(event);
}

void SubtaskRowView::paintEvent(QPaintEvent* event) {
    if (groundIsOld_ || ground_.size() != size() * devicePixelRatioF()) {
        drawGround();
    }
    QPainter painter(this);
    painter.setOpacity(opacity_);
    painter.drawPixmap(0, 0, ground_);
    if (event->region().intersects(petSquare().toAlignedRect())) {
        pet_.draw(painter, petSquare().topLeft(), petPoints, row_.pet, look_, moment_);
    }
}

void SubtaskRowView::drawGround() {
    ground_ = QPixmap(size() * devicePixelRatioF());
    ground_.setDevicePixelRatio(devicePixelRatioF());
    ground_.fill(Qt::transparent);
    QPainter painter(&ground_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double radius = std::max(look_.theme->radius - 3, 2.0);
    painter.setBrush(qt::color(look_.theme->cardBase));
    painter.drawPath(roundedShape(QRectF(rect()), radius));
    painter.setBrush(qt::color(look_.theme->text.faded(groundTint)));
    painter.drawPath(roundedShape(QRectF(rect()), radius));
    const CardText set = text();
    drawCardText(painter, set, textCorner(set), *look_.theme, stateColor());
    groundIsOld_ = false;
}

} // namespace mimkins
