#include "Theme/Drawn.h"
#include "Theme/ThemeDrawing.h"

#include <algorithm>
#include <numbers>

namespace mimkins::test {

namespace {

constexpr double r = 11;
const std::vector<Color> colors{{0.35, 0.92, 0.82}, {0.55, 0.45, 1}};

/// True if a path of one closed outline goes round the point.
bool isInside(const Path& path, Point point) {
    const Path curves = path.flattenedToCurves();
    std::vector<Point> outline;
    for (const PathElement& element : curves.elements()) {
        if (element.kind == PathElement::Kind::cubic) {
            const Point from = outline.back();
            for (int step = 1; step <= 16; ++step) {
                const double u = step / 16.0;
                const double v = 1 - u;
                const auto mix = [&](double a, double b, double c, double d) {
                    return v * v * v * a + 3 * v * v * u * b + 3 * v * u * u * c + u * u * u * d;
                };
                outline.push_back(
                    {mix(from.x, element.b.x, element.c.x, element.a.x),
                     mix(from.y, element.b.y, element.c.y, element.a.y)}
                );
            }
        } else if (element.kind != PathElement::Kind::close) {
            outline.push_back(element.a);
        }
    }
    bool inside = false;
    for (std::size_t index = 0, last = outline.size() - 1; index < outline.size(); last = index++) {
        const Point a = outline[index];
        const Point b = outline[last];
        if ((a.y > point.y) != (b.y > point.y) &&
            point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) {
            inside = !inside;
        }
    }
    return inside;
}

/// Whether a point lies in one of eight turned rounded rectangles or the disc.
bool isInGear(Point point) {
    if (std::hypot(point.x, point.y) < 0.72 * r) {
        return true;
    }
    for (int tooth = 0; tooth < 8; ++tooth) {
        const Point turned = Transform::rotation(-tooth * std::numbers::pi / 4).apply(point);
        const double left = -0.17 * r + 0.1 * r;
        const double top = -0.98 * r + 0.1 * r;
        const double nearX = std::clamp(turned.x, left, -left);
        const double nearY = std::clamp(turned.y, top, top + 0.2 * r);
        if (std::hypot(turned.x - nearX, turned.y - nearY) < 0.1 * r) {
            return true;
        }
    }
    return false;
}

TEST(Cog, IsEightTeethAndADisc) {
    Drawn drawn;
    drawCog(drawn.context(), colors, {22, 0}, 2);
    const Path& gear = drawn.fill(0).path;
    int inside = 0;
    for (double y = -11.05; y < 11.2; y += 0.37) {
        for (double x = -11.05; x < 11.2; x += 0.37) {
            EXPECT_EQ(isInside(gear, {x, y}), isInGear({x, y})) << x << " " << y;
            inside += isInGear({x, y}) ? 1 : 0;
        }
    }
    EXPECT_GT(inside, 1000);
}

TEST(Cog, IsFilledByItsColoursAndOutlined) {
    Drawn drawn;
    drawCog(drawn.context(), colors, {22, 0}, 2);
    const auto fill = std::get<LinearGradient>(drawn.fill(0).shading);
    EXPECT_EQ(fill.gradient, Gradient(colors));
    const auto& outline = drawn.stroke(1);
    EXPECT_EQ(outline.path, drawn.fill(0).path);
    EXPECT_DOUBLE_EQ(outline.style.width, 0.08 * r);
    EXPECT_EQ(colorOf(outline.shading).opacity, 0.35);
}

TEST(Cog, HasAHubWithTwoEyes) {
    Drawn drawn;
    drawCog(drawn.context(), colors, {22, 0}, 2);
    ASSERT_EQ(drawn.size(), 5U);
    expectNear(boxOf(drawn.fill(2).path.elements().front()), {-0.42 * r, -0.42 * r, 0.84 * r, 0.84 * r});
    EXPECT_EQ(colorOf(drawn.fill(2).shading).opacity, 0.9);
    for (const std::size_t eye : {3U, 4U}) {
        const Rect box = boxOf(drawn.fill(eye).path.elements().front());
        EXPECT_NEAR(box.x + box.width / 2, (eye == 3 ? -0.15 : 0.15) * r, 1e-9);
        EXPECT_NEAR(box.y + box.height / 2, 0, 1e-9);
    }
}

double eyeHeight(double t) {
    Drawn drawn;
    drawCog(drawn.context(), colors, {22, 0}, t);
    return boxOf(drawn.fill(3).path.elements().front()).height;
}

TEST(Cog, BlinksOnItsCycle) {
    const double open = eyeHeight(2);
    int closed = 0;
    for (int step = 0; step < 410; ++step) {
        const double t = step * 0.01 + 0.001;
        EXPECT_DOUBLE_EQ(eyeHeight(t), eyeHeight(t + 4.1));
        closed += eyeHeight(t) < open / 2 ? 1 : 0;
    }
    EXPECT_GT(closed, 5);
    EXPECT_LT(closed, 40);
}

TEST(Cog, TurnsAboutItsMiddle) {
    Drawn drawn;
    drawCog(drawn.context(), colors, {22, 0.5}, 2);
    for (const Transform& shown : {drawn.fill(0).state.transform, drawn.fill(4).state.transform}) {
        const Transform expected = Transform::translation(r, r).after(Transform::rotation(0.5));
        EXPECT_NEAR(shown.a, expected.a, 1e-12);
        EXPECT_NEAR(shown.b, expected.b, 1e-12);
        EXPECT_NEAR(shown.tx, r, 1e-12);
        EXPECT_NEAR(shown.ty, r, 1e-12);
    }
    Drawn whole;
    drawCog(whole.context(), colors, {22, 2 * std::numbers::pi}, 2);
    EXPECT_NEAR(whole.fill(0).state.transform.a, 1, 1e-12);
    EXPECT_NEAR(whole.fill(0).state.transform.b, 0, 1e-12);
}

} // namespace

} // namespace mimkins::test
