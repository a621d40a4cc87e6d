#include "Setup/ButtonRow.h"

#include <QEvent>

#include <algorithm>

namespace mimkins {

namespace {

constexpr int gap = 10 - 2 * PillButton::ringRoom; ///< between the buttons' rings
constexpr int usualWidth = 240;

} // namespace

ButtonRow::ButtonRow() {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ButtonRow::setButtons(std::vector<PillButton*> buttons) {
    for (auto* former : buttons_) {
        former->hide();
        former->deleteLater(); // it may be the one whose press led here
    }
    buttons_ = std::move(buttons);
    for (auto* button : buttons_) {
        button->setParent(this);
        button->show();
    }
    updateGeometry();
    place();
}

ButtonRow::Places ButtonRow::placesWithin(int width) const {
    Places places;
    std::vector<QSize> sizes;
    int together = -gap;
    for (const auto* button : buttons_) {
        sizes.push_back(button->sizeWithin(width));
        together += sizes.back().width() + gap;
        places.height = std::max(places.height, sizes.back().height());
    }
    if (together <= width) {
        int left = (width - together) / 2;
        for (const QSize& size : sizes) {
            places.frames.emplace_back(QPoint(left, (places.height - size.height()) / 2), size);
            left += size.width() + gap;
        }
        return places;
    }
    places.height = 0;
    places.frames.resize(sizes.size());
    for (std::size_t index = sizes.size(); index-- > 0;) {
        const QSize& size = sizes[index];
        places.frames[index] = QRect(QPoint((width - size.width()) / 2, places.height), size);
        places.height += size.height() + (index > 0 ? gap : 0);
    }
    return places;
}

void ButtonRow::place() {
    const Places places = placesWithin(width());
    for (std::size_t index = 0; index < buttons_.size(); ++index) {
        buttons_[index]->setGeometry(places.frames[index]);
    }
}

int ButtonRow::heightForWidth(int width) const {
    return placesWithin(width).height;
}

QSize ButtonRow::sizeHint() const {
    return {usualWidth, heightForWidth(std::max(width(), usualWidth))};
}

QSize ButtonRow::minimumSizeHint() const {
    return {1, heightForWidth(std::max(width(), usualWidth))};
}

void ButtonRow::resizeEvent(QResizeEvent*) {
    place();
}

bool ButtonRow::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) { // a button's words or font changed
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

} // namespace mimkins
