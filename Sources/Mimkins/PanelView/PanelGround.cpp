#include "PanelView/PanelGround.h"

#include "Base/Perf.h"
#include "Drawing/Qt/Shapes.h"
#include "PanelView/AnimationTime.h"

#include <QPainter>

#include <cmath>

namespace mimkins {

namespace {

/// Between two frames, seconds.
constexpr double borderInterval = 1.0 / 12;
constexpr double particleInterval = 0.1;

bool isDue(double before, double now, double interval) {
    return std::floor(before / interval) != std::floor(now / interval);
}

} // namespace

PanelGround::PanelGround(QWidget& widget, const PetTheme& theme, Date now) : widget_(widget), theme_(theme) {
    themeChanged(now);
}

Backdrop::Form PanelGround::form() const {
    return {widget_.size(), drawerRadius, widget_.devicePixelRatioF()};
}

void PanelGround::draw(QPainter& painter, const QRegion& region) {
    backdrop_.draw(painter, region, theme_, form());
}

void PanelGround::drawBehind(QPainter& painter, const QWidget& widget, const QRect& area) {
    const QPoint corner = widget.mapTo(&widget_, QPoint());
    painter.save();
    painter.translate(-corner);
    draw(painter, area.translated(corner));
    painter.restore();
}

void PanelGround::themeChanged(Date now) {
    backdrop_.moveBorder(theme_, form(), animationTime(now));
    backdrop_.moveParticles(theme_, form(), animationTime(now));
}

bool PanelGround::moves() const {
    return movesInside() || (theme_.borderTravels && !perf::off().contains("ambient"));
}

bool PanelGround::movesInside() const {
    return theme_.particles != Particles::none && !perf::off().contains("ambient");
}

void PanelGround::animate(Date now) {
    if (!moves()) {
        return;
    }
    const double t = animationTime(now);
    if (theme_.borderTravels && isDue(backdrop_.borderMoment(), t, borderInterval)) {
        widget_.update(backdrop_.moveBorder(theme_, form(), t));
    }
    if (theme_.particles != Particles::none &&
        isDue(backdrop_.particleMoment().value_or(0), t, particleInterval)) {
        widget_.update(backdrop_.moveParticles(theme_, form(), t));
    }
}

} // namespace mimkins
