#include "PanelView/Backdrop.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Qt/Scheme.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace mimkins {

namespace {

Size sizeOf(const Backdrop::Form& form) {
    return {static_cast<double>(form.size.width()), static_cast<double>(form.size.height())};
}

void drawBorderAt(QPainter& painter, const PetTheme& theme, const Backdrop::Form& form, double t) {
    PainterCanvas canvas(painter, ColorScheme::dark); // for colours that are plain already
    GraphicsContext context(canvas);
    const Size size = sizeOf(form);
    drawBorder(context, edgePath(size, form.radius, theme.borderWidth), theme, size, t);
}

/// The pixels of the border: a frame, and the corners that bend into it.
QRegion ring(const PetTheme& theme, const Backdrop::Form& form) {
    const QRect whole(QPoint(0, 0), form.size);
    const int line = static_cast<int>(std::ceil(1.5 * theme.borderWidth)) + 1;
    const int corner = static_cast<int>(std::ceil(form.radius));
    QRegion region(whole);
    region -= whole.adjusted(line, line, -line, -line);
    region += QRect(0, 0, corner, corner);
    region += QRect(0, whole.height() - corner, corner, corner);
    return region;
}

QRegion regionOf(const std::vector<Rect>& areas) {
    QRegion region;
    for (const Rect& area : areas) {
        region += qt::rect(area).toAlignedRect();
    }
    return region;
}

/// Leaves only what lies inside the shape, with a smooth edge.
void cutToShape(QPainter& painter, const Backdrop::Form& form) {
    Path shape = edgePath(sizeOf(form), form.radius, 0);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    QPixmap mask(form.size * form.pixelRatio);
    mask.setDevicePixelRatio(form.pixelRatio);
    mask.fill(Qt::transparent);
    {
        QPainter inside(&mask);
        PainterCanvas canvas(inside, ColorScheme::dark);
        GraphicsContext(canvas).fill(shape, Color::black());
    }
    painter.drawPixmap(0, 0, mask);
}

} // namespace

void Backdrop::drawStill(const PetTheme& theme, const Form& form) {
    themeId_ = theme.id;
    scheme_ = theme.schemeUnder(systemScheme());
    still_ = QPixmap(form.size * form.pixelRatio);
    still_.setDevicePixelRatio(form.pixelRatio);
    still_.fill(Qt::transparent);
    QPainter painter(&still_);
    {
        PainterCanvas canvas(painter, scheme_);
        GraphicsContext context(canvas);
        drawSky(context, theme, scheme_, sizeOf(form));
        drawTexture(context, theme.texture, sizeOf(form));
    }
    cutToShape(painter, form);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (!theme.borderTravels) {
        drawBorderAt(painter, theme, form, 0);
    }
}

void Backdrop::draw(QPainter& painter, const QRegion& region, const PetTheme& theme, const Form& form) {
    if (themeId_ != theme.id || still_.size() != form.size * form.pixelRatio ||
        scheme_ != theme.schemeUnder(systemScheme())) {
        drawStill(theme, form);
    }
    painter.save();
    // Nothing lies beneath that would have to show through.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& part : region) {
        const QRectF source(QPointF(part.topLeft()) * form.pixelRatio, QSizeF(part.size()) * form.pixelRatio);
        painter.drawPixmap(QRectF(part), still_, source);
    }
    if (particles_ && region.intersects(regionOf(particleAreas(theme, *particles_, sizeOf(form))))) {
        // Particles leave the shape in its corners, where there is nothing for them to lie on.
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        PainterCanvas canvas(painter, scheme_);
        GraphicsContext context(canvas);
        drawParticles(context, theme, *particles_, sizeOf(form));
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (theme.borderTravels && region.intersects(ring(theme, form))) {
        drawBorderAt(painter, theme, form, border_);
    }
    painter.restore();
}

QRegion Backdrop::moveBorder(const PetTheme& theme, const Form& form, double t) {
    if (!theme.borderTravels) {
        return {};
    }
    border_ = t;
    return ring(theme, form);
}

QRegion Backdrop::moveParticles(const PetTheme& theme, const Form& form, double t) {
    QRegion changed;
    if (particles_) {
        changed = regionOf(particleAreas(theme, *particles_, sizeOf(form)));
    }
    particles_ = t;
    return changed + regionOf(particleAreas(theme, t, sizeOf(form)));
}

} // namespace mimkins
