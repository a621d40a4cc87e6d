#pragma once

#include "PanelView/CardLook.h"

#include <QPixmap>
#include <QRadioButton>

namespace mimkins {

/// A small preview of a theme in its own colours, which chooses it.
class ThemeTile final : public QRadioButton {
public:
    /// `theme` outlives the tile.
    explicit ThemeTile(const PetTheme& theme);

    const PetTheme& theme() const { return theme_; }

    /// `look` gives the scale of the font and how the pets are shuffled; the colours are the theme's own.
    void setLook(const CardLook& look);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    bool hitButton(const QPoint& place) const override { return rect().contains(place); }

private:
    QFont nameFont() const;
    double headScale() const;
    QPixmap ground() const;
    void drawHead(QPainter& painter) const;
    void drawBorder(QPainter& painter) const;

    PetTheme theme_; ///< with plain colours
    double scale_ = 1;
    PetLook pets_;
    QPixmap ground_;
};

} // namespace mimkins
