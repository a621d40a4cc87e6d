#include "Setup/Unfolding.h"

#include "Presentation/PanelFrames.h"

#include <QEvent>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double moveSeconds = 0.35;
constexpr int usualWidth = 220;

} // namespace

Unfolding::Unfolding(QWidget* content)
    : content_(content), clock_([this](double seconds) { return step(seconds); }) {
    content_->setParent(this);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    hide();
}

void Unfolding::setOpen(bool open, Motion motion) {
    if (open_ == open) {
        return;
    }
    open_ = open;
    if (motion == Motion::jump) {
        clock_.stop();
        setFraction(open ? 1 : 0);
        return;
    }
    from_ = fraction_;
    time_ = 0;
    setFraction(fraction_);
    clock_.start();
}

bool Unfolding::step(double seconds) {
    time_ += seconds;
    const double goal = open_ ? 1 : 0;
    setFraction(from_ + (goal - from_) * panel::easeInEaseOut(time_ / moveSeconds));
    if (time_ < moveSeconds) {
        return true;
    }
    clock_.stop();
    setFraction(goal);
    return false;
}

void Unfolding::setFraction(double fraction) {
    fraction_ = fraction;
    setVisible(open_ || fraction > 0);
    updateGeometry();
}

int Unfolding::heightForWidth(int width) const {
    return static_cast<int>(std::lround(fraction_ * content_->heightForWidth(width)));
}

QSize Unfolding::sizeHint() const {
    return {usualWidth, heightForWidth(std::max(width(), usualWidth))};
}

QSize Unfolding::minimumSizeHint() const {
    return {1, 0};
}

void Unfolding::place() {
    content_->setGeometry(0, 0, width(), content_->heightForWidth(width()));
}

void Unfolding::resizeEvent(QResizeEvent*) {
    place();
}

bool Unfolding::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) { // the content changed
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

} // namespace mimkins
