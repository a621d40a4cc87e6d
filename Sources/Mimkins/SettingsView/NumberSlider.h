#pragma once

#include "PanelView/CardLook.h"

#include <QSlider>

#include <functional>

namespace mimkins {

/// A number between two limits, set by a knob on a line. It has no steps; the arrow keys go by a hundredth.
class NumberSlider final : public QSlider {
public:
    NumberSlider(double least, double most);

    /// Called with each number that the user sets, while the knob is on its way too.
    std::function<void(double)> onChange;

    /// Room beside the line for the outline of what has the keyboard, points.
    static constexpr int ringRoom = 3;

    /// Shows a number; one beyond the limits stands at the nearer one.
    void setNumber(double number);
    double number() const;
    void setLook(const CardLook& look);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double knobSide() const;
    QRectF knob() const;
    void follow(double x);

    double least_;
    double most_;
    bool showing_ = false; ///< a number that the user hasn't set
    CardLook look_;
};

} // namespace mimkins
