#include "Drawing/CoverageMask.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace mimkins {

namespace {

/// Columns past the right bound, into which areas spill that don't count.
constexpr std::size_t spill = 2;

struct Extent {
    double left = std::numeric_limits<double>::infinity();
    double top = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = -std::numeric_limits<double>::infinity();
};

Extent extentOf(const Outline& outline) {
    Extent extent;
    for (std::size_t index = 0; index < outline.contourCount(); ++index) {
        for (const Point& point : outline.contour(index)) {
            extent.left = std::min(extent.left, point.x);
            extent.right = std::max(extent.right, point.x);
            extent.top = std::min(extent.top, point.y);
            extent.bottom = std::max(extent.bottom, point.y);
        }
    }
    return extent;
}

int cut(double value, int most) {
    return static_cast<int>(std::clamp(value, 0.0, static_cast<double>(most)));
}

} // namespace

/// Takes back what was added to rows that nobody has asked for.
void CoverageMask::clear() {
    for (std::size_t row = 0; row < reaches_.size(); ++row) {
        const Reach& reach = reaches_[row];
        if (reach.first < reach.end) {
            std::fill_n(areas_.data() + row * width_ + reach.first, reach.end - reach.first, 0.0F);
        }
    }
    reaches_.clear();
}

void CoverageMask::rasterize(const Outline& outline, int columns, int rows) {
    clear();
    const Extent extent = extentOf(outline);
    bounds_ = {};
    if (!std::isfinite(extent.left + extent.right + extent.top + extent.bottom)) {
        return;
    }
    bounds_ = {
        cut(std::floor(extent.left), columns), cut(std::floor(extent.top), rows),
        cut(std::ceil(extent.right), columns), cut(std::ceil(extent.bottom), rows)};
    if (bounds_.isEmpty()) {
        return;
    }
    width_ = static_cast<std::size_t>(bounds_.right - bounds_.left) + spill;
    const auto height = static_cast<std::size_t>(bounds_.bottom - bounds_.top);
    reaches_.resize(height);
    if (areas_.size() < width_ * height) {
        areas_.resize(width_ * height);
    }
    coverage_.resize(width_);
    for (std::size_t index = 0; index < outline.contourCount(); ++index) {
        const auto contour = outline.contour(index);
        if (contour.size() < 3) {
            continue;
        }
        Point before = contour.back();
        for (const Point& point : contour) {
            addLine(before, point);
            before = point;
        }
    }
}

/// Adds what a line contributes: in each row, the height it spans goes to all pixels to its right, and to the
/// pixels that it crosses by the area to the right of it.
void CoverageMask::addLine(Point from, Point to) {
    if (from.y == to.y) {
        return;
    }
    const double sense = from.y < to.y ? 1 : -1;
    if (sense < 0) {
        std::swap(from, to);
    }
    const double slope = (to.x - from.x) / (to.y - from.y);
    const double top = std::max(from.y - bounds_.top, 0.0);
    const double bottom = std::min(to.y - bounds_.top, static_cast<double>(bounds_.bottom - bounds_.top));
    if (bottom <= top) {
        return;
    }
    const double widest = static_cast<double>(width_ - spill);
    const auto at = [&](double y) { return from.x - bounds_.left + (y - (from.y - bounds_.top)) * slope; };
    double x = at(top);
    double y = top;
    for (auto row = static_cast<std::size_t>(top); y < bottom; ++row) {
        const double next = std::min(static_cast<double>(row + 1), bottom);
        const double nextX = at(next);
        const double left = std::clamp(std::min(x, nextX), 0.0, widest);
        const double right = std::clamp(std::max(x, nextX), 0.0, widest);
        addSpan(areas_.data() + row * width_, left, right, (next - y) * sense);
        Reach& reach = reaches_[row];
        reach.first = std::min(reach.first, static_cast<std::size_t>(left));
        reach.end = std::max(reach.end, static_cast<std::size_t>(right) + spill);
        x = nextX;
        y = next;
    }
}

/// A line within one row, from a column to one farther right, over a signed height.
void CoverageMask::addSpan(float* row, double from, double to, double height) {
    const auto first = static_cast<std::size_t>(from);
    const double firstPart = from - static_cast<double>(first);
    if (to <= static_cast<double>(first + 1)) {
        const double inside = height * (1 - (firstPart + to - static_cast<double>(first)) / 2);
        row[first] += static_cast<float>(inside);
        row[first + 1] += static_cast<float>(height - inside);
        return;
    }
    const double perColumn = height / (to - from);
    const double begin = 1 - firstPart;
    double given = perColumn * begin * begin / 2;
    row[first] += static_cast<float>(given);
    auto column = first + 1;
    // Through whole columns the share grows by the same step.
    double reached = perColumn * begin;
    for (; to > static_cast<double>(column + 1); ++column) {
        const double share = reached + perColumn / 2;
        row[column] += static_cast<float>(share - given);
        given = share;
        reached += perColumn;
    }
    const double end = to - static_cast<double>(column);
    const double last = reached + perColumn * end * (1 - end / 2);
    row[column] += static_cast<float>(last - given);
    row[column + 1] += static_cast<float>(height - last);
}

CoverageMask::Row CoverageMask::row(int y) {
    const auto index = static_cast<std::size_t>(y - bounds_.top);
    const Reach reach = std::exchange(reaches_[index], {});
    if (reach.first >= reach.end) {
        return {};
    }
    float* areas = areas_.data() + index * width_ + reach.first;
    const std::size_t columns = reach.end - reach.first;
    float sum = 0;
    for (std::size_t column = 0; column < columns; ++column) {
        sum += areas[column];
        areas[column] = 0;
        coverage_[column] = std::min(std::fabs(sum), 1.0F);
    }
    const std::size_t inside = std::min(reach.end, width_ - spill) - std::min(reach.first, width_ - spill);
    return {bounds_.left + static_cast<int>(reach.first), {coverage_.data(), inside}};
}

} // namespace mimkins
