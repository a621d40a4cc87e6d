#include "Pet/AwayMotion.h"
#include "Pet/BeachParts.h"

#include <numbers>

namespace mimkins::seaside {

using namespace away;

namespace {

constexpr double horizon = 47;

} // namespace

void sun(const PetPainter& pet, double evening) {
    const Point at{mix(18, 26, evening), mix(14, horizon - 2, evening * evening)};
    const Color color = mix({1, 0.82, 0.2}, {1, 0.5, 0.22}, evening);
    Path rays;
    for (int ray = 0; ray < 8; ++ray) {
        const double angle = 0.2 * pet.t + std::numbers::pi / 4 * ray;
        const double far = 14.2 + 0.9 * std::sin(2 * pet.t + ray * std::numbers::pi);
        rays.move({at.x + 11.4 * std::cos(angle), at.y + 11.4 * std::sin(angle)});
        rays.addLine({at.x + far * std::cos(angle), at.y + far * std::sin(angle)});
    }
    pet.stroke(rays, color, 2.2);
    pet.disc(at, 9, color);
}

void gull(const PetPainter& pet) {
    const double f = fraction(0.06 * pet.t);
    const double x = -9 + 118 * f;
    const double y = 35 + 3 * std::sin(0.9 * pet.t);
    const double flap = 2.6 * std::sin(6 * pet.t);
    Path wings;
    wings.move({x - 6, y - flap});
    wings.addQuadCurve({x, y + 1}, {x - 3, y - 4 - 0.5 * flap});
    wings.addQuadCurve({x + 6, y - flap}, {x + 3, y - 4 - 0.5 * flap});
    pet.stroke(wings, Color::grey(0.62), 1.8);
}

void sea(const PetPainter& pet, double evening) {
    const Color far = mix({0.16, 0.5, 0.82}, {0.62, 0.36, 0.55}, between(evening, 0.5, 1));
    const Color near = mix({0.38, 0.84, 0.86}, {0.95, 0.62, 0.5}, between(evening, 0.5, 1));
    pet.rounded(1, horizon, 98, 34, 9, LinearGradient{{far, near}, {50, horizon}, {50, 74}});
    Path crests;
    for (int row = 0; row < 3; ++row) {
        const double y = horizon + 5 + 5.5 * row;
        const double drift = 4 * std::sin(0.5 * pet.t + 2.1 * row);
        for (const double x : {10.0 + 9 * row, 46.0 + 7 * row, 76.0 - 5 * row}) {
            crests.move({x + drift, y});
            crests.addQuadCurve({x + drift + 9, y}, {x + drift + 4.5, y - 2.2});
        }
    }
    pet.stroke(crests, Color::white(0.5), 1.2);
}

void boat(const PetPainter& pet) {
    const double x = 18 + 5 * std::sin(0.13 * pet.t);
    const double y = horizon + 1;
    const PetPainter rocking = pet.turned({x, y}, 0.07 * std::sin(1.1 * pet.t));
    rocking.polygon({{x + 0.6, y - 1.5}, {x + 0.6, y - 14}, {x + 8, y - 1.5}}, Color{0.96, 0.97, 1});
    rocking.polygon({{x - 0.6, y - 1.5}, {x - 0.6, y - 11}, {x - 5.5, y - 1.5}}, Color{0.98, 0.45, 0.4});
    rocking.polygon({{x - 7, y - 0.6}, {x + 8, y - 0.6}, {x + 5, y + 3}, {x - 4.5, y + 3}}, darkBrown);
}

void sand(const PetPainter& pet, double evening) {
    const Color color = mix({0.97, 0.86, 0.6}, {0.93, 0.72, 0.52}, evening);
    const double wash = 1.4 * std::sin(0.8 * pet.t);
    const auto shore = [&](double rise) {
        Path path;
        path.move({1, 73 - rise});
        path.addCurve({99, 67 - rise}, {32, 62 - rise}, {64, 74 - rise});
        path.addLine({99, 90});
        path.addQuadCurve({91, 98}, {99, 98});
        path.addLine({9, 98});
        path.addQuadCurve({1, 90}, {1, 98});
        path.closeSubpath();
        return path;
    };
    pet.fill(shore(2.4 + wash), Color::white(0.75));
    pet.fill(shore(0), color);
}

} // namespace mimkins::seaside
