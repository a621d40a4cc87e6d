#include "PanelView/CardView.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/CardGround.h"
#include "PanelView/StretchedPicture.h"
#include "Presentation/Elapsed.h"
#include "Presentation/MoodTint.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mimkins {

namespace {

constexpr double padding = 10;
constexpr double stripedPadding = 14;
constexpr double columnGap = 10;
constexpr double leastTextWidth = 40;
constexpr double presenceGrain = 0.01;
constexpr double leastPillScale = 0.6;
/// Around the pill, for the ring of the focus.
constexpr double pillMargin = 3;
/// How far the heads of the crew reach below the pet's square.
constexpr double crewDrop = 6;

QString elapsedText(Date since, Date now) {
    return qt::text(elapsed(now - since));
}

} // namespace

CardView::CardView(CardRow row, CardLook look, Date now)
    : row_(std::move(row)), look_(std::move(look)), elapsed_(elapsedText(row_.since, now)), moment_(now),
      glowMoment_(now), pill_(new CardPill(this)) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::CustomContextMenu);
    pillPresence_.setGrain(presenceGrain);
    connect(pill_, &QAbstractButton::clicked, this, [this] {
        if (onToggleSubtasks) {
            onToggleSubtasks();
        }
    });
    connect(this, &QAbstractButton::clicked, this, [this] { press(); });
    describe();
    finish();
}

void CardView::setRow(const CardRow& row, Date now) {
    if (row_ != row) {
        row_ = row;
        text_.reset();
        describe();
        refresh();
        startMoving();
    }
    setNow(now);
}

void CardView::describe() {
    setAccessibleName(qt::text(row_.accessibleName));
    setAccessibleDescription(qt::text(row_.accessibleDescription));
    setCursor(row_.canOpen ? Qt::PointingHandCursor : Qt::ArrowCursor);
    scale_.setHighlighted(row_.highlighted);
    pillPresence_.setTarget(row_.pill ? 1 : 0);
    if (row_.pill) {
        pill_->setToolTip(qt::text(row_.pill->toolTip));
        pill_->setAccessibleName(qt::text(row_.pill->toolTip));
        pill_->setAccessibleDescription(qt::text(row_.pill->count.value_or("0") + " running"));
    }
    if (row_.crew) {
        crew_.setCrew(*row_.crew, look_);
    }
    placePill();
}

void CardView::press() {
    scale_.press();
    startMoving();
}

void CardView::startMoving() {
    if ((scale_.isMoving() || !pillPresence_.atRest()) && onMoves) {
        onMoves();
    }
}

void CardView::setLook(const CardLook& look) {
    look_ = look;
    text_.reset();
    describe();
    refresh();
}

void CardView::setNow(Date now) {
    const QString words = elapsedText(row_.since, now);
    if (words != elapsed_) {
        elapsed_ = words;
        text_.reset();
        groundIsOld_ = true;
        update(onScreen(textArea()).toAlignedRect());
    }
}

void CardView::setOpacity(double opacity) {
    if (opacity_ != opacity) {
        opacity_ = opacity;
        update();
    }
}

void CardView::animate(Date now) {
    if (moment_ == now) {
        return;
    }
    moment_ = now;
    QRegion changed(onScreen(petSquare()).toAlignedRect());
    if (row_.waiting || row_.crew) {
        const auto beat = [](Date date) { return std::floor(date.secondsSince1970 / GlowRing::interval); };
        if (beat(now) != beat(glowMoment_)) {
            glowMoment_ = now;
            if (row_.waiting) {
                changed += zoom(scale()).map(GlowRing::region(glowShape()));
            }
            if (row_.crew) {
                changed += onScreen(crewRect()).toAlignedRect();
            }
        }
    }
    update(changed);
}

bool CardView::isCalm() const {
    return mimkins::isCalm(row_.pet, look_);
}

bool CardView::step(double seconds) {
    const double before = scale();
    const bool scaling = scale_.step(seconds);
    const bool fading = pillPresence_.step(seconds);
    if (scale() != before) {
        placePill();
        update();
    } else if (fading) {
        update(onScreen(pillRect_).toAlignedRect());
    }
    if (!scaling && scale() != groundScale_) {
        refresh(); // so that words are sharp at rest
    }
    return scaling || fading;
}

void CardView::finish() {
    scale_.finish();
    pillPresence_.jump(pillPresence_.target());
    placePill();
    refresh();
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
    return std::ceil(std::max(textFor(width).height, look_.petPoints) + 2 * padding);
}

const CardText& CardView::textFor(double cardWidth) const {
    const double width = textWidth(cardWidth);
    if (!text_ || textWidth_ != width) {
        text_ = setCardText(row_, elapsed_, width, look_);
        textWidth_ = width;
    }
    return *text_;
}

QRectF CardView::cardRect() const {
    return QRectF(rect()).adjusted(shadowRoom, shadowRoom, -shadowRoom, -shadowRoom);
}

QRectF CardView::petSquare() const {
    const QRectF card = cardRect();
    return {card.left() + leadingPadding(), card.top() + padding, look_.petPoints, look_.petPoints};
}

QRectF CardView::crewRect() const {
    const QSizeF size = crew_.size();
    const QRectF pet = petSquare();
    return {{pet.center().x() - size.width() / 2, pet.bottom() + crewDrop - size.height()}, size};
}

const CardText& CardView::text() const {
    return textFor(cardRect().width());
}

/// All that is right of the pet.
QRectF CardView::textArea() const {
    QRectF area = cardRect();
    area.setLeft(petSquare().right());
    return area;
}

QPointF CardView::textCorner(const CardText& text) const {
    const QRectF card = cardRect();
    // Few words stand beside the pet's middle, many begin at the top.
    const double spare = std::max((card.height() - 2 * padding - text.height) / 2, 0.0);
    return {card.left() + leadingPadding() + look_.petPoints + columnGap, card.top() + padding + spare};
}

QTransform CardView::zoom(double scale) const {
    const QPointF middle = cardRect().center();
    QTransform transform;
    transform.translate(middle.x(), middle.y());
    transform.scale(scale, scale);
    transform.translate(-middle.x(), -middle.y());
    return transform;
}

QRectF CardView::onScreen(const QRectF& rect) const {
    return zoom(scale()).mapRect(rect);
}

GlowRing::Shape CardView::glowShape() const {
    return {size(), cardRect(), look_.theme->radius, tint(*look_.theme, row_.mood)};
}

void CardView::placePill() {
    pill_->setVisible(row_.pill.has_value());
    if (!row_.pill) {
        return;
    }
    const CardText& set = text();
    if (const auto* placed = set.find(CardText::Badge::pill)) {
        pillChip_ = placed->chip;
        const QRectF line = placed->rect.translated(textCorner(set));
        const double height = std::min(pillChip_.size().height(), line.height());
        pillRect_ = {line.left(), line.center().y() - height / 2, line.width(), height};
        pill_->setGeometry(onScreen(pillRect_).toAlignedRect());
    }
}

void CardView::resizeEvent(QResizeEvent*) {
    groundIsOld_ = true;
    placePill();
}

QString CardView::toolTipAt(QPointF place) const {
    const QPointF at = zoom(scale()).inverted().map(place);
    const CardText& set = text();
    const QPointF inText = at - textCorner(set);
    for (const auto& placed : set.chips) {
        if (!placed.rect.contains(inText)) {
            continue;
        }
        if (placed.badge == CardText::Badge::agent) {
            return agentToolTip;
        }
        if (placed.badge == CardText::Badge::effort) {
            return qt::text(row_.effort->toolTip);
        }
        if (placed.badge == CardText::Badge::model) {
            return qt::text(row_.model->toolTip);
        }
    }
    for (const auto& run : set.runs) {
        if (run.role == CardText::Role::project && run.rect.contains(inText)) {
            return qt::text(row_.projectToolTip);
        }
    }
    if (row_.crew && crewRect().contains(at)) {
        return qt::text(row_.crew->toolTip);
    }
    return cardRect().contains(at) ? qt::text(row_.toolTip) : QString();
}

bool CardView::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        refresh();
        break;
    case QEvent::ToolTip: {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), this);
        return true;
    }
    default:
        break;
    }
    return QAbstractButton::event(event);
}

bool CardView::hitButton(const QPoint& place) const {
    return onScreen(cardRect()).contains(place);
}

void CardView::keyPressEvent(QKeyEvent* event) {
    const bool menuKey = event->key() == Qt::Key_Menu ||
                         (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
    if (menuKey) {
        customContextMenuRequested(rect().center());
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else if (event->key() == Qt::Key_Space) {
        QAbstractButton::keyPressEvent(event);
    } else {
        event->ignore(); // the list moves the focus
    }
}

void CardView::paintEvent(QPaintEvent* event) {
    const bool atRest = !scale_.isMoving();
    if (groundIsOld_ || ground_.size() != size() * devicePixelRatioF() ||
        (atRest && groundScale_ != scale())) {
        drawGround();
    }
    const auto isSeen = [this, event](const QRectF& area) {
        return event->region().intersects(onScreen(area).toAlignedRect());
    };
    const QImage* pet = nullptr;
    if (isSeen(petSquare())) {
        pet = &pet_.at(moment_, look_.petPoints, devicePixelRatioF(), row_.pet, look_);
    }
    QPainter painter(this);
    painter.setOpacity(opacity_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale() != 1 || scale() != groundScale_);
    // Pictures are copied quickly only inside a plain rectangle.
    for (const QRect& part : event->region()) {
        painter.resetTransform();
        painter.setClipRect(part);
        drawPictures(painter, pet);
    }
    painter.setClipping(false);
    if (isSeen(pillRect_.adjusted(-pillMargin, -pillMargin, pillMargin, pillMargin))) {
        drawPill(painter);
    }
    if (row_.crew && isSeen(crewRect())) {
        crew_.draw(painter, crewRect().topLeft(), glowMoment_);
    }
}

void CardView::drawPictures(QPainter& painter, const QImage* pet) {
    painter.setTransform(zoom(scale() / groundScale_));
    painter.drawImage(0, 0, ground_);
    painter.setTransform(zoom(scale()));
    if (row_.waiting) {
        glow_.draw(painter, glowShape(), glowMoment_);
    }
    if (pet != nullptr) {
        painter.drawImage(petSquare().topLeft(), *pet);
    }
}

QImage CardView::plate(CardStates states) const {
    if (groundScale_ == 1) {
        return look_.plates->picture({size(), shadowRoom, devicePixelRatioF()}, row_, look_, states);
    }
    QImage picture = clearPicture(size(), devicePixelRatioF());
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(zoom(groundScale_));
    drawCardGround(painter, cardRect(), row_, look_, states);
    return picture;
}

void CardView::drawGround() {
    groundScale_ = scale();
    ground_ = plate({underMouse(), hasFocus()});
    QPainter painter(&ground_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(zoom(groundScale_));
    const QRectF card = cardRect();
    if (row_.highlighted) {
        drawHighlight(painter, card, look_);
    }
    const Color& mood = tint(*look_.theme, row_.mood);
    if (look_.theme->pad) {
        painter.setClipPath(cardShape(card, look_.theme->radius));
        drawPetPad(painter, petSquare(), mood);
        painter.setClipping(false);
    }
    const CardText& set = text();
    drawCardText(painter, set, textCorner(set), *look_.theme, mood);
    groundIsOld_ = false;
}

void CardView::drawPill(QPainter& painter) const {
    const double presence = std::clamp(pillPresence_.value(), 0.0, 1.0);
    if (presence <= 0) {
        return;
    }
    painter.save();
    painter.setOpacity(opacity_ * presence);
    const double scale = leastPillScale + (1 - leastPillScale) * presence;
    const QPointF middle = pillRect_.center();
    painter.translate(middle);
    painter.scale(scale, scale);
    painter.translate(-middle);
    pillChip_.draw(painter, pillRect_);
    if (pill_->hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(qt::color(look_.theme->text.faded(0.85)), 1.5));
        const QRectF ring = pillRect_.adjusted(-1.5, -1.5, 1.5, 1.5);
        painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
    }
    painter.restore();
}

} // namespace mimkins
