#include "PanelView/CardView.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/QtGlyphOutlines.h"
#include "Drawing/RasterCanvas.h"
#include "Pet/PetPainter.h"
#include "Presentation/Elapsed.h"
#include "Presentation/MoodTint.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mimkins {

namespace {

constexpr double padding = 10;
constexpr double stripedPadding = 14;
constexpr double columnGap = 10;
constexpr double leastTextWidth = 40;
constexpr double hoverLift = 0.04;
constexpr double hoverTint = 0.08;
constexpr double pressedScale = 0.97;
constexpr int shadowSteps = 4;

QString elapsedText(Date since, Date now) {
    return qt::text(elapsed(now - since));
}

QPainterPath rounded(const QRectF& rect, double radius) {
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

} // namespace

CardView::CardView(CardRow row, CardLook look, Date now)
    : row_(std::move(row)), look_(std::move(look)), elapsed_(elapsedText(row_.since, now)), moment_(now) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    describe();
}

void CardView::setRow(const CardRow& row, Date now) {
    if (row_ != row) {
        row_ = row;
        describe();
        refresh();
    }
    setNow(now);
}

void CardView::describe() {
    setAccessibleName(qt::text(row_.accessibleName));
    setAccessibleDescription(qt::text(row_.accessibleDescription));
    setToolTip(qt::text(row_.toolTip));
    setCursor(row_.canOpen ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void CardView::setLook(const CardLook& look) {
    look_ = look;
    refresh();
}

void CardView::setNow(Date now) {
    const QString words = elapsedText(row_.since, now);
    if (words != elapsed_) {
        elapsed_ = words;
        refresh();
    }
}

void CardView::setOpacity(double opacity) {
    if (opacity_ != opacity) {
        opacity_ = opacity;
        update();
    }
}

void CardView::animate(Date now) {
    if (moment_ != now) {
        moment_ = now;
        update(petSquare().toAlignedRect());
    }
}

bool CardView::isCalm() const {
    return !look_.pets.party && mimkins::isCalm(row_.pet.action);
}

void CardView::refresh() {
    groundIsOld_ = true;
    update();
}

double CardView::leadingPadding() const {
    return look_.theme->stripe ? stripedPadding : padding;
}

double CardView::textWidth(double cardWidth) const {
    return std::max(cardWidth - leadingPadding() - look_.petPoints - columnGap - padding, leastTextWidth);
}

double CardView::heightFor(double width) const {
    const auto set = setCardText(row_, elapsed_, textWidth(width), look_.typography);
    return std::ceil(std::max(set.height, look_.petPoints) + 2 * padding);
}

QRectF CardView::cardRect() const {
    return QRectF(rect()).adjusted(shadowRoom, shadowRoom, -shadowRoom, -shadowRoom);
}

CardText CardView::text() const {
    return setCardText(row_, elapsed_, textWidth(cardRect().width()), look_.typography);
}

bool CardView::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave ||
        event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        refresh();
    }
    return QAbstractButton::event(event);
}

void CardView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    case Qt::Key_Space:
        QAbstractButton::keyPressEvent(event);
        break;
    default:
        event->ignore(); // the list moves the focus
    }
}

void CardView::paintEvent(QPaintEvent*) {
    const QSize pixels = size() * devicePixelRatioF();
    if (groundIsOld_ || ground_.size() != pixels) {
        drawGround();
    }
    QPainter painter(this);
    painter.setOpacity(opacity_);
    if (isDown()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        const QPointF middle = cardRect().center();
        painter.translate(middle);
        painter.scale(pressedScale, pressedScale);
        painter.translate(-middle);
    }
    painter.drawPixmap(0, 0, ground_);
    drawPet(painter);
}

void CardView::drawGround() {
    ground_ = QPixmap(size() * devicePixelRatioF());
    ground_.setDevicePixelRatio(devicePixelRatioF());
    ground_.fill(Qt::transparent);
    QPainter painter(&ground_);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF card = cardRect();
    drawBackground(painter, card);
    drawEdge(painter, card);
    painter.setClipPath(rounded(card, look_.theme->radius));
    if (look_.theme->pad) {
        drawPad(painter, petSquare());
    }
    drawText(painter, card);
    groundIsOld_ = false;
}

QRectF CardView::petSquare() const {
    const QRectF card = cardRect();
    return {card.left() + leadingPadding(), card.top() + padding, look_.petPoints, look_.petPoints};
}

void CardView::drawBackground(QPainter& painter, const QRectF& card) const {
    const PetTheme& theme = *look_.theme;
    const QPainterPath shape = rounded(card, theme.radius);
    painter.setPen(Qt::NoPen);
    if (!row_.waiting && theme.cardShadow.opacity > 0) {
        QPainterPath outside;
        outside.addRect(QRectF(rect()));
        painter.save();
        painter.setClipPath(outside.subtracted(shape));
        painter.setBrush(qt::color(theme.cardShadow.faded(1.0 / shadowSteps)));
        for (int step = 1; step <= shadowSteps; ++step) {
            const QRectF halo = card.adjusted(-step, -step, step, step).translated(0, 2);
            painter.drawRoundedRect(halo, theme.radius + step, theme.radius + step);
        }
        painter.restore();
    }
    painter.fillPath(shape, qt::color(theme.cardBase));
    const bool hovering = underMouse();
    if (hovering) {
        painter.fillPath(shape, qt::color(theme.text.faded(hoverLift)));
    }
    const Color& mood = tint(theme, row_.mood);
    QLinearGradient wash(card.topLeft(), card.topRight());
    wash.setColorAt(0, qt::color(mood.faded(theme.cardTint + (hovering ? hoverTint : 0))));
    wash.setColorAt(1, qt::color(mood.faded(theme.cardTint * 0.2)));
    painter.fillPath(shape, wash);
    if (theme.stripe) {
        painter.setBrush(qt::color(mood));
        painter.drawRoundedRect(QRectF(card.left() + 5, card.top() + 12, 3, card.height() - 24), 1.5, 1.5);
    }
}

void CardView::drawEdge(QPainter& painter, const QRectF& card) const {
    const PetTheme& theme = *look_.theme;
    const Color& mood = tint(theme, row_.mood);
    const double width = row_.waiting ? 2 : 1;
    const double strength = row_.waiting ? 0.8 : theme.cardStroke;
    const double half = width / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(qt::color(mood.faded(strength)), width));
    painter.drawRoundedRect(
        card.adjusted(half, half, -half, -half), theme.radius - half, theme.radius - half
    );
    if (hasFocus()) {
        painter.setPen(QPen(qt::color(theme.text.faded(0.85)), 2));
        painter.drawRoundedRect(card.adjusted(-2, -2, 2, 2), theme.radius + 2, theme.radius + 2);
    }
}

void CardView::drawPad(QPainter& painter, const QRectF& square) const {
    const Color& mood = tint(*look_.theme, row_.mood);
    const double side = square.width();
    painter.save();
    painter.translate(square.center().x(), square.bottom() - side * 0.11 + 4);
    painter.scale(0.94, 0.22);
    QRadialGradient light(QPointF(0, 0), side * 0.5);
    light.setColorAt(0, qt::color(mood.faded(0.45)));
    light.setColorAt(1, qt::color(mood.faded(0)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(QPointF(0, 0), side * 0.5, side * 0.5);
    painter.restore();
}

void CardView::drawPet(QPainter& painter) {
    const double ratio = devicePixelRatioF();
    const int pixels = static_cast<int>(std::lround(look_.petPoints * ratio));
    if (petImage_.width() != pixels) {
        petImage_ = QImage(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    }
    petImage_.setDevicePixelRatio(ratio);
    petImage_.fill(Qt::transparent);
    const Bitmap bitmap{
        reinterpret_cast<std::uint32_t*>(petImage_.bits()), pixels, pixels,
        static_cast<int>(petImage_.bytesPerLine() / 4)};
    RasterCanvas canvas(
        bitmap, ratio, look_.theme->scheme.value_or(ColorScheme::dark), &QtGlyphOutlines::shared()
    );
    const PetFrame frame = petFrame(row_.pet, look_.pets, moment_);
    PetPainter pet(GraphicsContext(canvas), look_.petPoints, look_.petPoints, frame);
    pet.draw(actionOnStage(row_.pet, look_.pets));
    painter.drawImage(petSquare().topLeft(), petImage_);
}

QColor CardView::runColor(CardText::Role role) const {
    const PetTheme& theme = *look_.theme;
    switch (role) {
    case CardText::Role::project:
    case CardText::Role::mood:
        return qt::color(tint(theme, row_.mood));
    case CardText::Role::title:
        return qt::color(theme.text);
    case CardText::Role::name:
        return qt::color(theme.text.faded(0.8));
    case CardText::Role::separator:
    case CardText::Role::elapsed:
    case CardText::Role::activity:
        break;
    }
    return qt::color(theme.subtext);
}

void CardView::drawText(QPainter& painter, const QRectF& card) const {
    const CardText set = text();
    const double left = card.left() + leadingPadding() + look_.petPoints + columnGap;
    // Few words stand beside the pet's middle, many begin at the top.
    const double room = card.height() - 2 * padding;
    const double top = card.top() + padding + std::max((room - set.height) / 2, 0.0);
    for (const auto& run : set.runs) {
        painter.setFont(run.font);
        painter.setPen(runColor(run.role));
        painter.drawText(
            run.rect.translated(left, top),
            Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine, run.text
        );
    }
}

} // namespace mimkins
