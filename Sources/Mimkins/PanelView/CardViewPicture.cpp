#include "PanelView/CardView.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "PanelView/CardGround.h"
#include "PanelView/PanelGround.h"
#include "PanelView/StretchedPicture.h"
#include "Presentation/MoodTint.h"

#include <QPaintEvent>
#include <QPainter>

// How a card paints itself.

namespace mimkins {

namespace {

/// Around the pill, for the ring of the focus.
constexpr double pillMargin = 3;

} // namespace

void CardView::paintEvent(QPaintEvent* event) {
    keepGround();
    const CardFrame frame = this->frame();
    const auto isSeen = [this, event](const QRectF& area) {
        return event->region().intersects(onScreen(area).toAlignedRect());
    };
    const QImage* pet = nullptr;
    if (stage_->isHidden() && isSeen(frame.petSquare())) {
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
    if (row_.highlighted) {
        drawHighlight(painter, frame.card(), look_); // over the glow of a card that waits
    }
    if (isSeen(pill_->place().adjusted(-pillMargin, -pillMargin, pillMargin, pillMargin))) {
        pill_->draw(painter, opacity_, look_.theme->text.faded(0.85));
        painter.setOpacity(opacity_);
    }
    if (row_.crew && isSeen(crewRect())) {
        crew_.draw(painter, crewRect().topLeft(), glowMoment_);
    }
}

void CardView::drawPictures(QPainter& painter, const QImage* pet) {
    const CardFrame frame = this->frame();
    painter.setTransform(frame.zoom(scale() / groundScale_));
    painter.drawImage(0, 0, ground_);
    painter.setTransform(frame.zoom(scale()));
    if (row_.waiting) {
        glow_.draw(painter, glowShape(), glowMoment_);
    }
    if (pet != nullptr) {
        painter.drawImage(frame.petSquare().topLeft(), *pet);
    }
}

QImage CardView::plate(CardStates states) const {
    if (groundScale_ == 1) {
        return look_.plates->picture(
            {size(), CardFrame::shadowRoom, devicePixelRatioF()}, row_, look_, states
        );
    }
    QImage picture = clearPicture(size(), devicePixelRatioF());
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(frame().zoom(groundScale_));
    drawCardGround(painter, frame().card(), row_, look_, states);
    return picture;
}

/// Brings up to date what stands still.
void CardView::keepGround() {
    const bool atRest = !scale_.isMoving();
    groundIsOld_ = groundIsOld_ || (timeIsOld_ && groundScale_ != 1);
    if (groundIsOld_ || ground_.size() != size() * devicePixelRatioF() ||
        (atRest && groundScale_ != scale())) {
        drawGround();
    } else if (timeIsOld_) {
        drawTime();
    }
}

void CardView::drawGround() {
    groundScale_ = scale();
    ground_ = plate({underMouse(), hasFocus()});
    QPainter painter(&ground_);
    painter.setRenderHint(QPainter::Antialiasing);
    const CardFrame frame = this->frame();
    painter.setTransform(frame.zoom(groundScale_));
    const Color& mood = tint(*look_.theme, row_.mood);
    if (look_.theme->pad) {
        painter.setClipPath(roundedShape(frame.card(), look_.theme->radius));
        drawPetPad(painter, frame.petSquare(), mood);
        painter.setClipping(false);
    }
    const CardText& set = text();
    drawCardText(painter, set, frame.textCorner(set.height), *look_.theme, mood);
    groundIsOld_ = false;
    timeIsOld_ = false;
}

/// Draws the time in the ground again, and nothing else.
void CardView::drawTime() {
    const QImage plate = this->plate({underMouse(), hasFocus()});
    const CardText& set = text();
    QPainter painter(&ground_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(timeArea().toAlignedRect());
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, plate);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    drawElapsed(painter, set, frame().textCorner(set.height), *look_.theme);
    timeIsOld_ = false;
}

/// All that lies beneath the pet.
QImage CardView::petGround() {
    keepGround();
    const QRect place = stage_->geometry();
    QImage picture = clearPicture(place.size(), devicePixelRatioF());
    QPainter painter(&picture);
    painter.translate(-place.topLeft());
    look_.ground->drawBehind(painter, *this, place);
    painter.drawImage(0, 0, ground_);
    return picture;
}

} // namespace mimkins
