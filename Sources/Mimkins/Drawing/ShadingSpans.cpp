#include "Drawing/ShadingSpans.h"

#include "Drawing/Rounding.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

/// The opposite of a map; nothing for one that leaves no area.
std::optional<Transform> inverse(const Transform& map) {
    const double determinant = map.a * map.d - map.b * map.c;
    if (determinant == 0 || !std::isfinite(determinant)) {
        return std::nullopt;
    }
    const double by = 1 / determinant;
    return Transform{
        map.d * by,
        -map.b * by,
        -map.c * by,
        map.a * by,
        (map.c * map.ty - map.d * map.tx) * by,
        (map.b * map.tx - map.a * map.ty) * by,
    };
}

/// From the shading's coordinates to those in which a linear gradient runs from x = 0 to x = 1.
std::optional<Transform> alongLine(const LinearGradient& linear) {
    const double dx = linear.end.x - linear.start.x;
    const double dy = linear.end.y - linear.start.y;
    const double squared = dx * dx + dy * dy;
    if (squared <= 0) {
        return std::nullopt;
    }
    const Transform turned{dx / squared, 0, dy / squared, 0, 0, 0};
    return turned.after(Transform::translation(-linear.start.x, -linear.start.y));
}

} // namespace

std::uint32_t ShadingSpans::packed(const Stop& stop) {
    const auto byte = [](float value) { return nearestWhole(value * 255); };
    return byte(stop.alpha) << 24 | byte(stop.red) << 16 | byte(stop.green) << 8 | byte(stop.blue);
}

ShadingSpans::Stop ShadingSpans::stopOf(const Color& color, ColorScheme scheme, double opacity) {
    const Color shown = color.resolved(scheme);
    const auto alpha = static_cast<float>(std::clamp(shown.opacity * opacity, 0.0, 1.0));
    const auto channel = [alpha](double value) {
        return static_cast<float>(std::clamp(value, 0.0, 1.0)) * alpha;
    };
    return {channel(shown.red), channel(shown.green), channel(shown.blue), alpha};
}

void ShadingSpans::takeStops(const Gradient& gradient, ColorScheme scheme, double opacity) {
    stops_.clear();
    for (const Color& color : gradient.colors()) {
        stops_.push_back(stopOf(color, scheme, opacity));
    }
}

bool ShadingSpans::begin(const Shading& shading, ColorScheme scheme, const Transform& map, double opacity) {
    if (const auto* color = std::get_if<Color>(&shading)) {
        kind_ = Kind::plain;
        plain_ = packed(stopOf(*color, scheme, opacity));
        return plain_ >> 24 != 0;
    }
    tableIsFilled_ = false;
    const auto back = inverse(map);
    if (!back) {
        return false;
    }
    if (const auto* linear = std::get_if<LinearGradient>(&shading)) {
        kind_ = Kind::linear;
        takeStops(linear->gradient, scheme, opacity);
        const auto along = alongLine(*linear);
        back_ = along ? along->after(*back) : Transform{0, 0, 0, 0, 1, 0};
    } else if (const auto* radial = std::get_if<RadialGradient>(&shading)) {
        kind_ = Kind::radial;
        takeStops(radial->gradient, scheme, opacity);
        back_ = Transform::translation(-radial->center.x, -radial->center.y).after(*back);
        start_ = radial->startRadius;
        span_ = std::max(radial->endRadius - radial->startRadius, 1e-9);
    } else if (const auto* angular = std::get_if<AngularGradient>(&shading)) {
        kind_ = Kind::angular;
        takeStops(angular->gradient, scheme, opacity);
        back_ = Transform::rotation(-angular->angle)
                    .after(Transform::translation(-angular->center.x, -angular->center.y))
                    .after(*back);
    }
    return !stops_.empty();
}

std::uint32_t ShadingSpans::colorAt(double place) const {
    const auto last = static_cast<double>(stops_.size() - 1);
    const double scaled = std::clamp(place, 0.0, 1.0) * last;
    const auto index = std::min(static_cast<std::size_t>(scaled), stops_.size() - 1);
    const Stop& from = stops_[index];
    const Stop& to = stops_[std::min(index + 1, stops_.size() - 1)];
    const auto way = static_cast<float>(scaled - static_cast<double>(index));
    const auto mixed = [way](float left, float right) { return left + (right - left) * way; };
    return packed(
        {mixed(from.red, to.red), mixed(from.green, to.green), mixed(from.blue, to.blue),
         mixed(from.alpha, to.alpha)}
    );
}

std::optional<std::uint32_t> ShadingSpans::plainRow(int y) const {
    if (kind_ == Kind::plain) {
        return plain_;
    }
    if (kind_ == Kind::linear && std::fabs(back_.a) < 1e-9) {
        return colorAt(back_.c * (y + 0.5) + back_.tx);
    }
    return std::nullopt;
}

void ShadingSpans::fillTable() {
    const auto last = static_cast<double>(table_.size() - 1);
    for (std::size_t index = 0; index < table_.size(); ++index) {
        table_[index] = colorAt(static_cast<double>(index) / last);
    }
    tableIsFilled_ = true;
}

std::span<const std::uint32_t> ShadingSpans::row(int x, int y, std::size_t count) {
    if (!tableIsFilled_) {
        fillTable();
    }
    pixels_.resize(std::max(pixels_.size(), count));
    const Point first = back_.apply({x + 0.5, y + 0.5});
    const auto stepX = static_cast<float>(back_.a);
    const auto stepY = static_cast<float>(back_.b);
    const auto start = static_cast<float>(start_);
    const auto perSpan = static_cast<float>(1 / span_);
    for (std::size_t index = 0; index < count; ++index) {
        const auto steps = static_cast<float>(index);
        const float atX = static_cast<float>(first.x) + steps * stepX;
        const float atY = static_cast<float>(first.y) + steps * stepY;
        float place = atX;
        if (kind_ == Kind::radial) {
            place = (std::sqrt(atX * atX + atY * atY) - start) * perSpan;
        } else if (kind_ == Kind::angular) {
            place = std::atan2(atY, atX) * static_cast<float>(0.5 / std::numbers::pi);
            place -= std::floor(place);
        }
        const float entry = std::clamp(place, 0.0F, 1.0F) * 255 + 0.5F;
        pixels_[index] = table_[static_cast<std::size_t>(entry)];
    }
    return {pixels_.data(), count};
}

} // namespace mimkins
