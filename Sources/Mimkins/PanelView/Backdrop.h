#pragma once

#include "Theme/PetTheme.h"

#include <QPainterPath>
#include <QPixmap>

class QPainter;

namespace mimkins {

/// The theme's background and border inside a shape, kept as a picture until size or theme change.
class Backdrop {
public:
    struct Form {
        QPainterPath shape; ///< fills a rectangle from the origin
        QSize size;
        double pixelRatio = 1;
    };

    void draw(QPainter& painter, const PetTheme& theme, const Form& form);

private:
    QPixmap picture_;
    std::string_view themeId_;
    QSize size_;
};

} // namespace mimkins
