#pragma once

#include "Theme/PetTheme.h"

#include <QColor>
#include <QScrollBar>

#include <optional>

namespace mimkins {

/// A vertical scroll bar that is a handle and nothing else. It is drawn by hand: what a style draws for one
/// takes longer than a whole card.
class ThinScrollBar final : public QScrollBar {
public:
    ThinScrollBar();

    void setTheme(const PetTheme& theme);

    /// Where the handle stands in the widget.
    QRect handle() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QColor ink_;
    std::optional<int> grip_; ///< how far below the handle's top it is held
};

} // namespace mimkins
