#include "SettingsView/Switch.h"

#include "PanelView/ReturnKey.h"
#include "SettingsView/ControlDrawing.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace mimkins {

namespace {

constexpr double trackWidth = 30;
constexpr double trackHeight = 18;
constexpr double knobGap = 2;
constexpr double slideSeconds = 0.14;

QColor between(const QColor& from, const QColor& to, double way) {
    const auto mix = [way](float left, float right) {
        return static_cast<float>(left + (right - left) * way);
    };
    return QColor::fromRgbF(
        mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()), mix(from.blueF(), to.blueF()),
        mix(from.alphaF(), to.alphaF())
    );
}

} // namespace

Switch::Switch() : look_(controls::plainLook()), clock_([this](double seconds) { return step(seconds); }) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Switch::setLook(const CardLook& look) {
    look_ = look;
    updateGeometry();
    update();
}

QSize Switch::sizeHint() const {
    return {
        controls::scaled(look_, trackWidth) + 2 * ringRoom,
        controls::scaled(look_, trackHeight) + 2 * ringRoom};
}

bool Switch::hitButton(const QPoint& place) const {
    return rect().contains(place);
}

void Switch::keyPressEvent(QKeyEvent* event) {
    if (!pressByReturn(*this, *event)) {
        QCheckBox::keyPressEvent(event);
    }
}

/// The user's own change is seen to happen; any other stands there at once.
void Switch::nextCheckState() {
    const double former = place_;
    QCheckBox::nextCheckState();
    if (isVisible()) {
        place_ = former;
        clock_.start();
    } else {
        checkStateSet();
    }
}

void Switch::checkStateSet() {
    QCheckBox::checkStateSet();
    clock_.stop();
    place_ = isChecked() ? 1 : 0;
    update();
}

bool Switch::step(double seconds) {
    const double way = seconds / slideSeconds;
    place_ = std::clamp(place_ + (isChecked() ? way : -way), 0.0, 1.0);
    update();
    if (place_ != (isChecked() ? 1 : 0)) {
        return true;
    }
    clock_.stop();
    return false;
}

QRectF Switch::track() const {
    return QRectF(rect()).adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom);
}

void Switch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = track();
    const double radius = area.height() / 2;
    const QColor off = controls::primary(look_, underMouse() ? 0.34 : 0.26);
    controls::fillRounded(painter, area, radius, between(off, controls::accent(look_), place_));
    const double side = area.height() - 2 * knobGap;
    const double left = area.left() + knobGap + place_ * (area.width() - area.height());
    const QRectF knob(left, area.top() + knobGap, side, side);
    controls::fillRounded(painter, knob, side / 2, between(Qt::white, controls::knobOnAccent(look_), place_));
    if (hasFocus()) {
        controls::drawFocusRing(painter, rect(), height() / 2.0, look_);
    }
}

} // namespace mimkins
