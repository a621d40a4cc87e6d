#pragma once

#include "PanelView/CardLook.h"
#include "PanelView/FrameClock.h"

#include <QCheckBox>

namespace mimkins {

/// A switch that slides between off and on. Its words stand beside it, as a label of their own.
class Switch final : public QCheckBox {
public:
    Switch();

    /// Room beside the track for the outline of what has the keyboard, points.
    static constexpr int ringRoom = 3;

    void setLook(const CardLook& look);

    /// Moves the knob on by so many seconds. True if it isn't there yet.
    bool step(double seconds);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& place) const override;
    void nextCheckState() override;
    void checkStateSet() override;

private:
    QRectF track() const;

    CardLook look_;
    double place_ = 0; ///< of the knob, 0 to 1
    FrameClock clock_;
};

} // namespace mimkins
