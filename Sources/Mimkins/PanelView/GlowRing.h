#pragma once

#include "Base/Date.h"
#include "Drawing/Color.h"

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QRegion>

namespace mimkins {

/// The pulsing outline of a card that waits. Its two parts are kept as pictures and only shown more or less
/// strongly, so that a pulse costs no drawing of curves.
class GlowRing {
public:
    /// How far the light reaches beyond the card, in points.
    static constexpr double blur = 5;
    /// Seconds between two of its frames.
    static constexpr double interval = 0.1;

    struct Shape {
        QSize size;  ///< of the widget
        QRectF card; ///< in the widget
        double radius = 0;
        Color tint;

        friend bool operator==(const Shape&, const Shape&) = default;
    };

    void draw(QPainter& painter, const Shape& shape, Date at);
    /// What changes from one of its frames to the next.
    static QRegion region(const Shape& shape);

private:
    struct Pictures {
        Shape shape;
        QImage outline;
        QImage light;

        bool isOf(const Shape& wanted, double ratio) const {
            return wanted == shape && outline.devicePixelRatio() == ratio;
        }
    };

    static Pictures drawn(const Shape& shape, double ratio);
    void prepare(const Shape& shape, double ratio);

    Pictures low_; ///< as low as can be, for cards of all heights
    Pictures shown_;
};

} // namespace mimkins
