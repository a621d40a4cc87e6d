#include "PanelView/PanelGround.h"

#include "Base/Perf.h"
#include "Drawing/Qt/Shapes.h"
#include "PanelView/AnimationTime.h"

namespace mimkins {

namespace {

/// Between two frames, seconds.
constexpr double borderInterval = 1.0 / 12;
constexpr double particleInterval = 0.1;

} // namespace

PanelGround::PanelGround(QWidget& widget, RunLoop& loop, const PetTheme& theme)
    : widget_(widget), loop_(loop), theme_(theme) {
    themeChanged();
}

Backdrop::Form PanelGround::form() const {
    return {widget_.size(), drawerRadius, widget_.devicePixelRatioF()};
}

double PanelGround::now() const {
    return animationTime(loop_.now());
}

void PanelGround::draw(QPainter& painter, const QRegion& region) {
    backdrop_.draw(painter, region, theme_, form());
}

void PanelGround::themeChanged() {
    backdrop_.moveBorder(theme_, form(), now());
    backdrop_.moveParticles(theme_, form(), now());
    border_.reset();
    particles_.reset();
    keepTime();
}

void PanelGround::setPaused(bool paused) {
    paused_ = paused;
    keepTime();
}

void PanelGround::keepTime() {
    if (paused_ || perf::off().contains("ambient")) {
        border_.reset();
        particles_.reset();
        return;
    }
    if (theme_.borderTravels && !border_) {
        border_ = loop_.every(borderInterval, [this] {
            widget_.update(backdrop_.moveBorder(theme_, form(), now()));
        });
    }
    if (theme_.particles != Particles::none && !particles_) {
        particles_ = loop_.every(particleInterval, [this] {
            widget_.update(backdrop_.moveParticles(theme_, form(), now()));
        });
    }
}

} // namespace mimkins
