#pragma once

#include "PanelView/FrameClock.h"

#include <QWidget>

namespace mimkins {

/// Holds something that opens downwards and shuts again. Shut, it takes no room and can't be reached.
class Unfolding final : public QWidget {
public:
    enum class Motion { jump, glide };

    /// Takes the content.
    explicit Unfolding(QWidget* content);

    void setOpen(bool open, Motion motion);

    bool isOpen() const { return open_; }

    bool isMoving() const { return clock_.isRunning(); }

    /// Moves on by so many seconds. True if it isn't there yet.
    bool step(double seconds);

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    void setFraction(double fraction);
    void place();

    QWidget* content_;
    bool open_ = false;
    double fraction_ = 0; ///< of the content's height that shows
    double from_ = 0;
    double time_ = 0; ///< since it began to move, seconds
    FrameClock clock_;
};

} // namespace mimkins
