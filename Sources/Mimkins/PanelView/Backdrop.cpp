#include "PanelView/Backdrop.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Qt/Scheme.h"
#include "Drawing/RasterCanvas.h"
#include "PanelView/StretchedPicture.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace mimkins {

namespace {

Size sizeOf(const Backdrop::Form& form) {
    return {static_cast<double>(form.size.width()), static_cast<double>(form.size.height())};
}

void drawStandingBorder(QPainter& painter, const PetTheme& theme, const Backdrop::Form& form) {
    PainterCanvas canvas(painter, ColorScheme::dark); // for colours that are plain already
    GraphicsContext context(canvas);
    const Size size = sizeOf(form);
    drawBorder(context, edgePath(size, form.radius, theme.borderWidth), theme, size, 0);
}

/// The rectangles that hold the border: top and bottom with their corners, left and right.
std::array<QRect, 4> strips(const PetTheme& theme, const Backdrop::Form& form) {
    const int width = form.size.width();
    const int height = form.size.height();
    const int line = static_cast<int>(std::ceil(1.5 * theme.borderWidth)) + 1;
    const int corner = std::min(static_cast<int>(std::ceil(form.radius)), height / 2);
    const int between = height - 2 * corner;
    return {
        QRect(0, 0, width, corner), QRect(0, height - corner, width, corner), QRect(0, corner, line, between),
        QRect(width - line, corner, line, between)};
}

QRegion ring(const PetTheme& theme, const Backdrop::Form& form) {
    QRegion region;
    for (const QRect& strip : strips(theme, form)) {
        region += strip;
    }
    return region;
}

struct Strip {
    QRect place;
    QImage image;
};

/// The travelling border as pictures of those of its strips that the region touches. Qt would fill the
/// angular gradient with a pool of threads, whose waking and sleeping costs many times what the filling does.
std::vector<Strip>
travellingBorder(const QRegion& region, const PetTheme& theme, const Backdrop::Form& form, double t) {
    const Size size = sizeOf(form);
    const Path shape = edgePath(size, form.radius, theme.borderWidth);
    std::vector<Strip> result;
    for (const QRect& strip : strips(theme, form)) {
        if (!region.intersects(strip)) {
            continue;
        }
        QImage image = clearPicture(strip.size(), form.pixelRatio);
        const Bitmap bitmap{
            reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
            static_cast<int>(image.bytesPerLine() / 4)};
        RasterCanvas canvas(bitmap, form.pixelRatio, ColorScheme::dark, nullptr);
        GraphicsContext context(canvas);
        context.translateBy(-strip.x(), -strip.y());
        drawBorder(context, shape, theme, size, t);
        result.push_back({strip, image});
    }
    return result;
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
        drawStandingBorder(painter, theme, form);
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
        painter.setClipRect(part); // pictures are copied quickly only inside a plain rectangle
        painter.drawPixmap(0, 0, still_);
    }
    painter.setClipRegion(region);
    if (particles_ && region.intersects(regionOf(particleAreas(theme, *particles_, sizeOf(form))))) {
        // Particles leave the shape in its corners, where there is nothing for them to lie on.
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        PainterCanvas canvas(painter, scheme_);
        GraphicsContext context(canvas);
        drawParticles(context, theme, *particles_, sizeOf(form));
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (theme.borderTravels) {
        for (const auto& [place, image] : travellingBorder(region, theme, form, border_)) {
            for (const QRect& part : region.intersected(place)) {
                painter.setClipRect(part);
                painter.drawImage(place.topLeft(), image);
            }
        }
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
