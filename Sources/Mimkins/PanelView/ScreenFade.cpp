#include "PanelView/ScreenFade.h"

#include "Presentation/PanelFrames.h"

#include <QPainter>

namespace mimkins {

namespace {

constexpr double fadeSeconds = 0.2;

} // namespace

ScreenFade::ScreenFade() : clock_([this](double seconds) { return step(seconds); }) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ScreenFade::begin(QWidget& leaving) {
    if (leaving.size().isEmpty()) {
        return;
    }
    picture_ = QPixmap(leaving.size() * leaving.devicePixelRatioF());
    picture_.setDevicePixelRatio(leaving.devicePixelRatioF());
    picture_.fill(Qt::transparent);
    leaving.render(&picture_, {}, {}, QWidget::DrawChildren);
    setGeometry(&leaving == parentWidget() ? leaving.rect() : leaving.geometry());
    time_ = 0;
    show();
    raise();
    clock_.start();
}

bool ScreenFade::step(double seconds) {
    time_ += seconds;
    update();
    if (time_ < fadeSeconds) {
        return true;
    }
    clock_.stop();
    picture_ = {};
    hide();
    return false;
}

void ScreenFade::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(1 - panel::easeInEaseOut(time_ / fadeSeconds));
    painter.drawPixmap(0, 0, picture_);
}

} // namespace mimkins
