#include "SettingsView/NumberSlider.h"

#include "Drawing/Qt/Conversions.h"
#include "SettingsView/ControlDrawing.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

/// The parts of a whole that a knob can stand at: many more than there are pixels.
constexpr double parts = 10'000;
constexpr double lineHeight = 4;
constexpr double knobPoints = 16;

} // namespace

NumberSlider::NumberSlider(double least, double most)
    : QSlider(Qt::Horizontal), least_(least), most_(most), look_(controls::plainLook()) {
    setRange(static_cast<int>(std::lround(least * parts)), static_cast<int>(std::lround(most * parts)));
    setSingleStep(static_cast<int>(parts / 100));
    setPageStep(static_cast<int>(parts / 20));
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QSlider::valueChanged, this, [this] {
        if (!showing_ && onChange) {
            onChange(number());
        }
    });
}

void NumberSlider::setNumber(double number) {
    const double shown = std::isnan(number) ? least_ : std::clamp(number, least_, most_);
    showing_ = true;
    setValue(static_cast<int>(std::lround(shown * parts)));
    showing_ = false;
    update();
}

double NumberSlider::number() const {
    return value() / parts;
}

void NumberSlider::setLook(const CardLook& look) {
    look_ = look;
    updateGeometry();
    update();
}

double NumberSlider::knobSide() const {
    return controls::scaled(look_, knobPoints);
}

QSize NumberSlider::sizeHint() const {
    return {100, static_cast<int>(knobSide()) + 2 * ringRoom};
}

QSize NumberSlider::minimumSizeHint() const {
    return {static_cast<int>(4 * knobSide()), sizeHint().height()};
}

QRectF NumberSlider::knob() const {
    const double way = static_cast<double>(value() - minimum()) / (maximum() - minimum());
    const double room = width() - knobSide() - 2 * ringRoom;
    return {ringRoom + way * room, (height() - knobSide()) / 2, knobSide(), knobSide()};
}

void NumberSlider::follow(double x) {
    const double room = width() - knobSide() - 2 * ringRoom;
    const double way = std::clamp((x - ringRoom - knobSide() / 2) / std::max(room, 1.0), 0.0, 1.0);
    setValue(static_cast<int>(std::lround(minimum() + way * (maximum() - minimum()))));
}

void NumberSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    follow(event->position().x());
}

void NumberSlider::mouseMoveEvent(QMouseEvent* event) {
    if (isSliderDown()) {
        follow(event->position().x());
    }
}

void NumberSlider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        setSliderDown(false);
        update();
    }
}

/// The wheel scrolls the screen that the slider stands on.
void NumberSlider::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void NumberSlider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double thickness = controls::scaled(look_, lineHeight);
    const QRectF line(ringRoom, (height() - thickness) / 2, width() - 2 * ringRoom, thickness);
    controls::fillRounded(painter, line, thickness, controls::primary(look_, 0.2));
    QRectF filled = line;
    filled.setRight(knob().center().x());
    controls::fillRounded(painter, filled, thickness, controls::accent(look_));
    const double side = knobSide();
    controls::fillRounded(painter, knob(), side / 2, Qt::white);
    controls::strokeRounded(painter, knob(), side / 2, QPen(QColor(0, 0, 0, isSliderDown() ? 130 : 80), 1));
    if (hasFocus()) {
        controls::drawFocusRing(painter, knob().adjusted(-3, -3, 3, 3), side, look_);
    }
}

} // namespace mimkins
