#include "Pet/PetPainter.h"

#include "Pet/Stage.h"

#include <algorithm>
#include <cmath>

namespace mimkins {

double fraction(double value) {
    return value - std::floor(value);
}

PetPainter::PetPainter(const GraphicsContext& context, double width, double height, const PetFrame& frame)
    : PetFrame(frame), gc(context),
      s(std::min(width, height) / 100), origin{(width - 100 * s) / 2, (height - 100 * s) / 2} {
    gc.translateBy(origin.x, origin.y);
    gc.scaleBy(s, s);
}

void PetPainter::draw(PetAction action) {
    const Stage cues = stage(*this, action);
    thin = cues.thin;
    for (const Cue& cue : cues) {
        perform(cue);
    }
}

GraphicsContext PetPainter::placed() const {
    GraphicsContext context = gc;
    context.translateBy(shiftX, 0);
    return context;
}

void PetPainter::fill(const Path& path, const Shading& shading) const {
    placed().fill(path, shading);
}

void PetPainter::stroke(const Path& path, const Shading& shading, double width) const {
    placed().stroke(path, shading, StrokeStyle::round(width));
}

void PetPainter::ellipse(double x, double y, double width, double height, const Shading& shading) const {
    fill(Path::ellipse({x, y, width, height}), shading);
}

void PetPainter::disc(Point center, double radius, const Shading& shading) const {
    ellipse(center.x - radius, center.y - radius, 2 * radius, 2 * radius, shading);
}

void PetPainter::ring(Point center, double radius, const Color& color, double width) const {
    stroke(Path::ellipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius}), color, width);
}

void PetPainter::rounded(
    double x, double y, double width, double height, double radius, const Shading& shading
) const {
    fill(Path::roundedRect({x, y, width, height}, radius), shading);
}

void PetPainter::line(std::initializer_list<Point> points, const Color& color, double width) const {
    stroke(Path::polyline(points), color, width);
}

void PetPainter::curve(Point from, Point control, Point to, const Color& color, double width) const {
    Path path;
    path.move(from);
    path.addQuadCurve(to, control);
    stroke(path, color, width);
}

void PetPainter::polygon(std::initializer_list<Point> points, const Shading& shading) const {
    fill(Path::polygon(points), shading);
}

void PetPainter::word(std::string_view text, Point center, double size, const Color& color) const {
    placed().draw({text, size, FontWeight::black, FontDesign::rounded, color}, center);
}

PetPainter PetPainter::turned(Point about, double angle) const {
    PetPainter copy = *this;
    copy.gc.translateBy(about.x + shiftX, about.y);
    copy.gc.rotate(angle);
    copy.gc.translateBy(-about.x - shiftX, -about.y);
    return copy;
}

PetPainter PetPainter::moved(double dx, double dy) const {
    PetPainter copy = *this;
    copy.gc.translateBy(dx, dy);
    return copy;
}

PetPainter PetPainter::scaled(Point about, double x, double y) const {
    PetPainter copy = *this;
    copy.gc.translateBy(about.x + shiftX, about.y);
    copy.gc.scaleBy(x, y);
    copy.gc.translateBy(-about.x - shiftX, -about.y);
    return copy;
}

PetPainter PetPainter::faded(double opacity) const {
    PetPainter copy = *this;
    copy.gc.setOpacity(gc.opacity() * std::clamp(opacity, 0.0, 1.0));
    return copy;
}

} // namespace mimkins
