#pragma once

#include "PanelView/Typography.h"
#include "Presentation/Notice.h"
#include "Theme/PetTheme.h"

#include <QWidget>

namespace mimkins {

/// A notice as it looks: a pet's head, a title and a line below it on the theme's background.
class HUDView final : public QWidget {
public:
    /// The row of head and words grows no wider than this, in points; longer words are shortened.
    static constexpr double mostWidth = 420;
    /// Room around the row for its shadow.
    static constexpr double outerPadding = 6;

    HUDView();

    /// `theme` has plain colours.
    void setContent(const Notice& notice, const PetTheme& theme);

    const Notice& notice() const { return notice_; }

    /// The words as they stand there, shortened where they are too long.
    QString titleLine() const;
    QString subtitleLine() const;

    /// The row without the room around it.
    QRectF row() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont titleFont() const;
    QFont subtitleFont() const;
    double mostTextWidth() const;
    void drawShadow(QPainter& painter) const;
    void drawGround(QPainter& painter) const;
    void drawEdge(QPainter& painter) const;
    void drawHead(QPainter& painter) const;
    void drawWords(QPainter& painter) const;

    Notice notice_;
    PetTheme theme_;
    Typography typography_;
};

} // namespace mimkins
