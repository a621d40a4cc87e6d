#include "PanelView/CardView.h"

#include "Drawing/Qt/Conversions.h"
#include "PanelView/CardToolTip.h"
#include "PanelView/PanelGround.h"
#include "PanelView/ReturnKey.h"
#include "Presentation/Elapsed.h"
#include "Presentation/MoodTint.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace mimkins {

namespace {

QString elapsedText(Date since, Date now) {
    return qt::text(elapsed(now - since));
}

} // namespace

CardView::CardView(CardRow row, CardLook look, Date now)
    : row_(std::move(row)), look_(std::move(look)), elapsed_(elapsedText(row_.since, now)), moment_(now),
      glowMoment_(now), pill_(new CardPill(this)),
      stage_(new PetStage(
          this, {[this] { return petGround(); },
                 [this](const QImage& ground) -> const QImage& {
                     return pet_.over(ground, moment_, look_.petPoints, row_.pet, look_);
                 }}
      )) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::CustomContextMenu);
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
    pill_->present(row_.pill);
    if (row_.crew) {
        crew_.setCrew(*row_.crew, look_);
    }
    placePill();
    placeStage();
}

void CardView::press() {
    scale_.press();
    startMoving();
}

void CardView::startMoving() {
    if ((scale_.isMoving() || pill_->isFading()) && onMoves) {
        onMoves();
    }
}

void CardView::setLook(const CardLook& look) {
    look_ = look;
    text_.reset();
    describe();
    refresh();
}

bool CardView::setNow(Date now) {
    const QString words = elapsedText(row_.since, now);
    if (words == elapsed_) {
        return false;
    }
    elapsed_ = words;
    if (text_ && replaceElapsed(*text_, elapsed_)) {
        timeIsOld_ = true;
        update(onScreen(timeArea()).toAlignedRect());
        return true;
    }
    text_.reset();
    groundIsOld_ = true;
    update(onScreen(textArea()).toAlignedRect());
    return true;
}

void CardView::setOpacity(double opacity) {
    if (opacity_ != opacity) {
        opacity_ = opacity;
        placeStage();
        update();
    }
}

void CardView::animate(Date now) {
    if (moment_ == now) {
        return;
    }
    moment_ = now;
    QRegion changed;
    if (stage_->isHidden()) {
        changed = onScreen(frame().petSquare()).toAlignedRect();
    } else {
        stage_->update();
    }
    if (row_.waiting || row_.crew) {
        const auto beat = [](Date date) { return std::floor(date.secondsSince1970 / GlowRing::interval); };
        if (beat(now) != beat(glowMoment_)) {
            glowMoment_ = now;
            if (row_.waiting) {
                changed += frame().zoom(scale()).map(GlowRing::region(glowShape()));
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
    const bool fading = pill_->step(seconds);
    if (scale() != before) {
        placePill();
        placeStage();
        update();
    } else if (fading) {
        update(onScreen(pill_->place()).toAlignedRect());
    }
    if (!scaling && scale() != groundScale_) {
        refresh(); // so that words are sharp at rest
    }
    return scaling || fading;
}

void CardView::finish() {
    scale_.finish();
    pill_->finish();
    placePill();
    placeStage();
    refresh();
}

void CardView::refresh() {
    groundIsOld_ = true;
    stage_->groundChanged();
    update();
}

CardFrame CardView::frame() const {
    return {QSizeF(size()), look_};
}

double CardView::heightFor(double width) const {
    const auto& set = textFor(CardFrame::textWidth(width, look_));
    return std::ceil(std::max(set.height, look_.petPoints) + 2 * CardFrame::padding);
}

const CardText& CardView::textFor(double width) const {
    if (!text_ || textWidth_ != width) {
        text_ = setCardText(row_, elapsed_, width, look_);
        textWidth_ = width;
    }
    return *text_;
}

QRectF CardView::crewRect() const {
    return row_.crew ? frame().crew(crew_.size()) : QRectF();
}

const CardText& CardView::text() const {
    return textFor(frame().textWidth());
}

/// All that is right of the pet.
QRectF CardView::textArea() const {
    const CardFrame frame = this->frame();
    QRectF area = frame.card();
    area.setLeft(frame.petSquare().right());
    return area;
}

/// Where the time stands, with a little room for letters that reach beyond their line.
QRectF CardView::timeArea() const {
    const CardText& set = text();
    const auto* run = set.find(CardText::Role::elapsed);
    const QPointF corner = frame().textCorner(set.height);
    return run != nullptr ? run->rect.translated(corner).adjusted(-2, 0, 2, 0) : QRectF();
}

QRectF CardView::onScreen(const QRectF& rect) const {
    return frame().zoom(scale()).mapRect(rect);
}

GlowRing::Shape CardView::glowShape() const {
    return {size(), frame().card(), look_.theme->radius, tint(*look_.theme, row_.mood)};
}

void CardView::placePill() {
    pill_->setVisible(row_.pill.has_value());
    if (!row_.pill) {
        return;
    }
    const CardText& set = text();
    if (const auto* placed = set.find(CardText::Badge::pill)) {
        pill_->setPicture(placed->chip, placed->rect.translated(frame().textCorner(set.height)));
        pill_->setGeometry(onScreen(pill_->place()).toAlignedRect());
    }
}

/// True if all that lies beneath the pet stands still and nothing lies over it.
bool CardView::mayStage() const {
    const bool moves = look_.ground == nullptr || look_.ground->movesInside();
    const bool covered = row_.waiting || row_.crew || row_.highlighted;
    const bool atRest = scale() == 1 && !scale_.isMoving() && opacity_ == 1;
    const double ratio = devicePixelRatioF();
    return !moves && !covered && atRest && ratio == std::floor(ratio);
}

void CardView::placeStage() {
    stage_->setGeometry(frame().petSquare().toRect());
    stage_->setVisible(mayStage());
}

void CardView::resizeEvent(QResizeEvent*) {
    groundIsOld_ = true;
    stage_->groundChanged();
    placePill();
    placeStage();
}

QString CardView::toolTipAt(QPointF place) const {
    const CardFrame frame = this->frame();
    const CardText& set = text();
    const CardToolTipPlaces places{set, frame.textCorner(set.height), crewRect(), frame.card()};
    return cardToolTip(row_, places, frame.zoom(scale()).inverted().map(place));
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
    return onScreen(frame().card()).contains(place);
}

void CardView::keyPressEvent(QKeyEvent* event) {
    const bool menuKey = event->key() == Qt::Key_Menu ||
                         (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
    if (menuKey) {
        customContextMenuRequested(rect().center());
    } else if (event->key() == Qt::Key_Space) {
        QAbstractButton::keyPressEvent(event);
    } else if (!pressByReturn(*this, *event)) {
        event->ignore(); // the list moves the focus
    }
}

} // namespace mimkins
