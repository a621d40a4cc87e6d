#include "Setup/PairRow.h"

#include <QEvent>

#include <algorithm>

namespace mimkins {

namespace {

constexpr int gap = 8 - PillButton::ringRoom;
constexpr int lineGap = 2;
constexpr int usualWidth = 220;

int heightOf(const QWidget& widget, int width) {
    return widget.hasHeightForWidth() ? widget.heightForWidth(width) : widget.sizeHint().height();
}

} // namespace

PairRow::PairRow(QWidget* words, PillButton* button) : words_(words), button_(button) {
    words_->setParent(this);
    button_->setParent(this);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void PairRow::setLeastRoom(int pixels) {
    leastRoom_ = pixels;
    updateGeometry();
    place();
}

PairRow::Places PairRow::placesWithin(int width) const {
    Places places;
    if (button_->isHidden()) {
        places.height = heightOf(*words_, width);
        places.words = QRect(0, 0, width, places.height);
        return places;
    }
    const QSize button = button_->sizeWithin(width);
    const int room = width - button.width() - gap;
    if (room >= leastRoom_) {
        const int words = heightOf(*words_, room);
        places.height = std::max(words, button.height());
        places.words = QRect(0, (places.height - words) / 2, room, words);
        places.button = QRect(QPoint(width - button.width(), (places.height - button.height()) / 2), button);
        return places;
    }
    const int words = heightOf(*words_, width);
    places.words = QRect(0, 0, width, words);
    places.button = QRect(QPoint(0, words + lineGap), button);
    places.height = words + lineGap + button.height();
    return places;
}

void PairRow::place() {
    const Places places = placesWithin(width());
    words_->setGeometry(places.words);
    button_->setGeometry(places.button);
}

int PairRow::heightForWidth(int width) const {
    return placesWithin(width).height;
}

QSize PairRow::sizeHint() const {
    return {usualWidth, heightForWidth(std::max(width(), usualWidth))};
}

QSize PairRow::minimumSizeHint() const {
    return {1, heightForWidth(std::max(width(), usualWidth))};
}

void PairRow::resizeEvent(QResizeEvent*) {
    place();
}

bool PairRow::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) { // what it holds changed
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

} // namespace mimkins
