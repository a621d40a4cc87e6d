#include "PanelView/Backdrop.h"

#include "Drawing/Qt/Conversions.h"

#include <QConicalGradient>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

namespace mimkins {

namespace {

constexpr double travellingOpacity = 0.75;

template <typename Gradient>
void addStops(Gradient& gradient, const std::vector<Color>& colors) {
    for (std::size_t index = 0; index < colors.size(); ++index) {
        const double last = static_cast<double>(std::max<std::size_t>(colors.size() - 1, 1));
        gradient.setColorAt(static_cast<double>(index) / last, qt::color(colors[index]));
    }
}

void drawSky(QPainter& painter, const PetTheme& theme, const QRectF& area) {
    QLinearGradient sky(area.topLeft(), area.bottomLeft());
    addStops(sky, theme.sky);
    painter.fillRect(area, sky);
    for (const auto& glow : theme.glows) {
        const QPointF center(
            area.left() + glow.center.x * area.width(), area.top() + glow.center.y * area.height()
        );
        QRadialGradient light(center, glow.radius);
        light.setColorAt(0, qt::color(glow.color));
        light.setColorAt(1, qt::color(glow.color.faded(0)));
        painter.fillRect(area, light);
    }
}

void drawDots(QPainter& painter, const QRectF& area) {
    constexpr double first = 9;
    constexpr double pace = 18;
    constexpr double size = 1.4;
    painter.setPen(Qt::NoPen);
    painter.setBrush(qt::color(Color::white(0.05)));
    for (double y = first; y < area.height(); y += pace) {
        for (double x = first; x < area.width(); x += pace) {
            painter.drawEllipse(QRectF(x, y, size, size));
        }
    }
}

void drawBorder(QPainter& painter, const PetTheme& theme, const QPainterPath& shape) {
    QBrush brush;
    if (theme.borderTravels) {
        QConicalGradient round(shape.boundingRect().center(), 0);
        addStops(round, theme.border);
        brush = round;
        painter.setOpacity(travellingOpacity);
    } else {
        QLinearGradient down(shape.boundingRect().topLeft(), shape.boundingRect().bottomRight());
        addStops(down, theme.border);
        brush = down;
    }
    // The shape clips the outer half of the stroke away.
    painter.strokePath(shape, QPen(brush, 2 * theme.borderWidth));
}

} // namespace

void Backdrop::draw(QPainter& painter, const PetTheme& theme, const Form& form) {
    const QSize pixels = form.size * form.pixelRatio;
    if (themeId_ != theme.id || size_ != pixels || picture_.isNull()) {
        themeId_ = theme.id;
        size_ = pixels;
        picture_ = QPixmap(pixels);
        picture_.setDevicePixelRatio(form.pixelRatio);
        picture_.fill(Qt::transparent);
        QPainter inside(&picture_);
        inside.setRenderHint(QPainter::Antialiasing);
        const QRectF area(QPointF(0, 0), form.size);
        drawSky(inside, theme, area);
        if (theme.texture == Texture::dots) {
            drawDots(inside, area);
        }
        drawBorder(inside, theme, form.shape);
        inside.setOpacity(1);
        // Cut to the shape last, so that its edge is smooth.
        QPainterPath outside;
        outside.addRect(area);
        inside.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        inside.fillPath(outside.subtracted(form.shape), Qt::black);
    }
    painter.drawPixmap(0, 0, picture_);
}

} // namespace mimkins
