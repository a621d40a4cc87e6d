#include "PanelView/HeaderButtons.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "PanelView/MoonIcon.h"
#include "PanelView/ReturnKey.h"
#include "Pet/PetFrame.h"
#include "Presentation/PanelFrames.h"
#include "Theme/ThemeDrawing.h"

#include <QKeyEvent>
#include <QPainter>

#include <numbers>

namespace mimkins {

namespace {

constexpr double spinSeconds = 0.5;
constexpr double fullTurn = 2 * std::numbers::pi;
constexpr double hoverTint = 0.12;
constexpr double pressedOpacity = 0.6;

} // namespace

HeaderButton::HeaderButton() : theme_(PetTheme::nightSky()) {
    setFixedSize(side, side);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void HeaderButton::setTheme(const PetTheme& theme) {
    theme_ = theme;
    update();
}

void HeaderButton::setWords(const QString& name, const QString& help) {
    setToolTip(help);
    setAccessibleName(name);
    setAccessibleDescription(help);
}

void HeaderButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up) {
        event->ignore(); // the way into the screen below
    } else if (!pressByReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

void HeaderButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(qt::color(theme_.text.faded(hoverTint)));
        painter.drawRoundedRect(rect(), 6, 6);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(qt::color(theme_.text.faded(0.85)), 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75), 6, 6);
    }
    painter.setOpacity(isDown() ? pressedOpacity : 1);
    drawPicture(painter);
}

CogButton::CogButton() : clock_([this](double seconds) { return step(seconds); }) {}

void CogButton::setNow(Date now) {
    const double t = now.secondsSince1970 - animationReference;
    const bool changes = cogBlinks(t) != cogBlinks(t_);
    t_ = t;
    if (changes) {
        update();
    }
}

void CogButton::setOpen(bool open, bool spins) {
    if (open_ == open) {
        return;
    }
    open_ = open;
    if (!spins) {
        clock_.stop();
        turn_ = open ? fullTurn : 0;
        update();
        return;
    }
    spinTime_ = 0;
    clock_.start();
}

bool CogButton::step(double seconds) {
    spinTime_ += seconds;
    const double way = panel::easeInEaseOut(spinTime_ / spinSeconds);
    turn_ = fullTurn * (open_ ? way : 1 - way);
    update();
    if (spinTime_ < spinSeconds) {
        return true;
    }
    clock_.stop();
    return false;
}

void CogButton::drawPicture(QPainter& painter) {
    PainterCanvas canvas(painter, theme().scheme.value_or(ColorScheme::dark));
    GraphicsContext context(canvas);
    drawCog(context, theme().cog, {side, turn_}, t_);
}

void MoonButton::setFilled(bool filled) {
    if (filled_ != filled) {
        filled_ = filled;
        update();
    }
}

void MoonButton::drawPicture(QPainter& painter) {
    PainterCanvas canvas(painter, theme().scheme.value_or(ColorScheme::dark));
    GraphicsContext context(canvas);
    drawMoon(context, filled_ ? IconForm::filled : IconForm::outlined, theme().title, side);
}

} // namespace mimkins
