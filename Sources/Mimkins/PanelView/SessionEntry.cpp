#include "PanelView/SessionEntry.h"

#include "PanelView/CardKeys.h"

#include <algorithm>

namespace mimkins {

namespace {

/// Between a card and its list of subtasks.
constexpr double subtasksGap = 6;

} // namespace

void SessionEntry::setLook(const CardLook& look) {
    card_->setLook(look);
    if (subtasks_ != nullptr) {
        subtasks_->setLook(look);
    }
}

bool SessionEntry::setNow(Date now) {
    bool changed = card_->setNow(now);
    if (subtasks_ != nullptr) {
        changed = subtasks_->setNow(now) || changed;
    }
    const double before = height_;
    return changed && measure(width_) != before;
}

void SessionEntry::animate(Date now, unsigned frame, const QRect& seen) {
    const bool due = frame % 2 == 0 || !card_->isCalm();
    if (due && card_->geometry().intersects(seen)) {
        card_->animate(now);
    }
    if (subtasks_ != nullptr && subtasks_->geometry().intersects(seen)) {
        const QRect part = seen.intersected(subtasks_->geometry());
        subtasks_->animate(now, frame, part.translated(-subtasks_->pos()));
    }
}

std::vector<QWidget*> SessionEntry::tabStops() const {
    std::vector<QWidget*> stops{card_, &card_->pill()};
    if (subtasks_ != nullptr) {
        stops.push_back(&subtasks_->finishedButton());
    }
    return stops;
}

bool SessionEntry::hasFocus() const {
    return holdsFocus(*card_) || (subtasks_ != nullptr && holdsFocus(*subtasks_));
}

double SessionEntry::measure(double width) {
    cardHeight_ = card_->heightFor(width);
    const bool open = subtasks_ != nullptr && card_->row().subtasks;
    width_ = width;
    height_ = cardHeight_ + (open ? subtasksGap + subtasks_->heightFor(width) : 0);
    return height_;
}

void SessionEntry::place(const CardFlow::Place& place, double width) {
    constexpr int room = CardView::shadowRoom;
    const double left = CardFlow::padding + place.offsetX();
    const double whole = std::max(place.height(), 1.0);
    const double height = subtasks_ != nullptr ? std::min(whole, cardHeight_) : whole;
    const QRectF frame(left, place.y(), width, height);
    card_->setGeometry(frame.adjusted(-room, -room, room, room).toRect());
    card_->setOpacity(place.opacity());
    if (subtasks_ == nullptr) {
        return;
    }
    const double rest = whole - cardHeight_ - subtasksGap;
    if (rest <= 0 && !card_->row().subtasks) {
        dropSubtasks();
        return;
    }
    subtasks_->setGeometry(QRectF(left, frame.bottom() + subtasksGap, width, std::max(rest, 0.0)).toRect());
}

void SessionEntry::dropSubtasks() {
    if (subtasks_ != nullptr) {
        subtasks_->hide();
        subtasks_->deleteLater();
        subtasks_ = nullptr;
    }
}

void SessionEntry::drop() {
    card_->hide();
    card_->deleteLater();
    dropSubtasks();
}

} // namespace mimkins
