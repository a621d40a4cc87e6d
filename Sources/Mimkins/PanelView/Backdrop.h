#pragma once

#include "Theme/ThemeDrawing.h"

#include <QPixmap>
#include <QRegion>

#include <optional>

class QPainter;

namespace mimkins {

/// The theme's background and border, inside the shape that hugs the screen's edge. What stands still is kept
/// as a picture until theme, size or scheme change; particles and a travelling border are drawn over it as
/// they were at the moments they were last moved to.
class Backdrop {
public:
    struct Form {
        QSize size;
        double radius = 0; ///< of the left corners
        double pixelRatio = 1;
    };

    /// Draws what the region asks for; it belongs to a painter whose origin is the shape's corner. The theme
    /// has plain colours.
    void draw(QPainter& painter, const QRegion& region, const PetTheme& theme, const Form& form);

    /// Shows the travelling border as it is at a moment, in seconds since 1 January 2001. Gives what has to
    /// be drawn again.
    QRegion moveBorder(const PetTheme& theme, const Form& form, double t);
    /// The same for the particles, which show from the first call on.
    QRegion moveParticles(const PetTheme& theme, const Form& form, double t);

    double borderMoment() const { return border_; }

    std::optional<double> particleMoment() const { return particles_; }

private:
    void drawStill(const PetTheme& theme, const Form& form);

    QPixmap still_;
    std::string_view themeId_;
    ColorScheme scheme_ = ColorScheme::dark;
    double border_ = 0;
    std::optional<double> particles_;
};

} // namespace mimkins
