#include "Drawing/Path.h"

#include "Drawing/PathCurves.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace mimkins {

namespace {

using Elements = std::vector<PathElement>;
using Kind = PathElement::Kind;

/// The memory of paths that are gone, for those to come. More than a pet has at once is never kept.
class Spares {
public:
    Elements take() {
        if (kept_.empty()) {
            return {};
        }
        Elements elements = std::move(kept_.back());
        kept_.pop_back();
        return elements;
    }

    void give(Elements&& elements) {
        if (elements.capacity() == 0 || kept_.size() == most) {
            return;
        }
        elements.clear();
        kept_.reserve(most);
        kept_.push_back(std::move(elements));
    }

private:
    static constexpr std::size_t most = 64;
    std::vector<Elements> kept_;
};

Spares& spares() {
    static thread_local Spares all;
    return all;
}

} // namespace

Path::Path() : elements_(spares().take()) {}

Path::Path(const Path& other) : elements_(spares().take()) {
    elements_ = other.elements_;
}

Path& Path::operator=(Path&& other) noexcept {
    std::swap(elements_, other.elements_);
    return *this;
}

Path::~Path() {
    spares().give(std::move(elements_));
}

PathElement& Path::add(Kind kind) {
    PathElement& element = elements_.emplace_back();
    element.kind = kind;
    return element;
}

Path Path::ellipse(const Rect& rect) {
    Path path;
    path.addEllipse(rect);
    return path;
}

Path Path::roundedRect(const Rect& rect, double radius, CornerStyle corners) {
    Path path;
    path.addRoundedRect(rect, radius, corners);
    return path;
}

Path Path::polyline(std::initializer_list<Point> points) {
    Path path;
    path.addLines(points);
    return path;
}

Path Path::polygon(std::initializer_list<Point> points) {
    Path path = polyline(points);
    path.closeSubpath();
    return path;
}

void Path::move(Point to) {
    add(Kind::move).a = to;
}

void Path::addLine(Point to) {
    add(Kind::line).a = to;
}

void Path::addLines(std::span<const Point> points) {
    if (points.empty()) {
        return;
    }
    move(points.front());
    for (const Point& point : points.subspan(1)) {
        addLine(point);
    }
}

void Path::addQuadCurve(Point to, Point control) {
    PathElement& element = add(Kind::quad);
    element.a = to;
    element.b = control;
}

void Path::addCurve(Point to, Point control1, Point control2) {
    PathElement& element = add(Kind::cubic);
    element.a = to;
    element.b = control1;
    element.c = control2;
}

void Path::addArc(Point center, double radius, double start, double end, ArcDirection direction) {
    PathElement& element = add(Kind::arc);
    element.a = center;
    element.b = {start, end};
    element.c = {radius, 0};
    element.direction = direction;
}

void Path::addEllipse(const Rect& rect) {
    PathElement& element = add(Kind::ellipse);
    element.a = {rect.x, rect.y};
    element.b = {rect.width, rect.height};
}

void Path::addRoundedRect(const Rect& rect, double radius, CornerStyle corners) {
    PathElement& element = add(Kind::roundedRect);
    element.a = {rect.x, rect.y};
    element.b = {rect.width, rect.height};
    element.c = {std::clamp(radius, 0.0, std::max(std::min(rect.width, rect.height) / 2, 0.0)), 0};
    element.corners = corners;
}

void Path::closeSubpath() {
    add(Kind::close);
}

Path Path::flattenedToCurves() const {
    Path curves;
    for (const PathElement& element : elements_) {
        appendCurves(curves, element);
    }
    return curves;
}

} // namespace mimkins
