#pragma once

#include "Base/Date.h"
#include "PanelView/FrameClock.h"
#include "Theme/PetTheme.h"

#include <QAbstractButton>

namespace mimkins {

/// A picture of the header that can be pressed.
class HeaderButton : public QAbstractButton {
public:
    static constexpr int side = 22;

    HeaderButton();

    void setTheme(const PetTheme& theme);
    /// What it is called, and what a press does.
    void setWords(const QString& name, const QString& help);

    QSize sizeHint() const override { return {side, side}; }

protected:
    const PetTheme& theme() const { return theme_; }

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Draws the picture into a square from the origin.
    virtual void drawPicture(QPainter& painter) = 0;

private:
    PetTheme theme_;
};

/// The way to the settings: a cog with a face, which turns once round whenever its screen comes or goes.
class CogButton final : public HeaderButton {
public:
    CogButton();

    /// `now` decides whether it blinks.
    void setNow(Date now);
    /// `spins` is false where nobody would see it.
    void setOpen(bool open, bool spins);

    double turn() const { return turn_; }

    bool isSpinning() const { return clock_.isRunning(); }

    /// Turns on by so many seconds. True if it isn't round yet.
    bool step(double seconds);

protected:
    void drawPicture(QPainter& painter) override;

private:
    double t_ = 0;
    double turn_ = 0; ///< radians
    double spinTime_ = 0;
    bool open_ = false;
    FrameClock clock_;
};

/// The way to the wrap-up.
class MoonButton final : public HeaderButton {
public:
    void setFilled(bool filled);

    bool isFilled() const { return filled_; }

protected:
    void drawPicture(QPainter& painter) override;

private:
    bool filled_ = false;
};

} // namespace mimkins
