#pragma once

#include "PanelView/FrameClock.h"

#include <QPixmap>
#include <QWidget>

namespace mimkins {

/// Lays a picture of the screen that goes over the one that comes, and lets it fade.
class ScreenFade final : public QWidget {
public:
    ScreenFade();

    /// Takes the picture of a sibling that is still seen, and its place; or those of the parent itself.
    void begin(QWidget& leaving);

    /// Fades by so many seconds. True if something of the picture is left.
    bool step(double seconds);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture_;
    double time_ = 0;
    FrameClock clock_;
};

} // namespace mimkins
