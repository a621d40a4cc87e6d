#include "AppIcon/AppIconDrawing.h"

#include <cmath>
#include <numbers>

namespace mimkins::app_icon {

namespace {

constexpr double pi = std::numbers::pi;
constexpr Color teal{0.35, 0.92, 0.82};
constexpr Color violet{0.55, 0.45, 1};
constexpr Color pink{1, 0.45, 0.75};
constexpr Color amber{1, 0.78, 0.35};
constexpr Color duskTop{0.28, 0.24, 0.58};
constexpr Color duskBottom{0.09, 0.08, 0.24};
constexpr Color furTop{0.6, 0.98, 0.9};
constexpr Color furBottom{0.25, 0.76, 0.72};
constexpr Color ink{0.06, 0.09, 0.18};

LinearGradient downwards(std::initializer_list<Color> colors, double top, double bottom) {
    return {Gradient(colors), {0, top}, {0, bottom}};
}

/// The essentials on whole pixels, laid out for sixteen and mirrored about the middle.
class SimpleIcon {
public:
    SimpleIcon(GraphicsContext& context, int side) : context_(context), side_(side) {}

    void draw() {
        const double corner = 3.6 * side_ / 16;
        context_.fill(
            Path::roundedRect({0, 0, side_, side_}, corner, CornerStyle::continuous),
            downwards({duskTop, duskBottom}, 0, side_)
        );
        const LinearGradient fur = downwards({furTop, furBottom}, at(3), at(14));
        for (const Rect& ear : both(3.5, 2.5, 2.5, 4)) {
            context_.fill(Path::roundedRect(ear, at(1)), fur);
        }
        const double left = at(2);
        const double top = at(5);
        context_.fill(
            Path::roundedRect({left, top, side_ - 2 * left, at(14) - top}, at(3.5), CornerStyle::continuous),
            fur
        );
        for (const Rect& eye : both(5, 7, 2, 4)) {
            context_.fill(Path::roundedRect(eye, eye.width / 4), ink);
        }
    }

private:
    double at(double sixteenths) const { return std::round(sixteenths * side_ / 16); }

    std::array<Rect, 2> both(double x, double y, double width, double height) const {
        const Rect first{at(x), at(y), at(width), at(y + height) - at(y)};
        Rect second = first;
        second.x = side_ - first.maxX();
        return {first, second};
    }

    GraphicsContext& context_;
    double side_;
};

void drawNight(GraphicsContext& context) {
    const Path square = Path::roundedRect({4, 4, 92, 92}, 22, CornerStyle::continuous);
    context.fill(square, downwards({duskTop, duskBottom}, 4, 96));
    context.fill(square, RadialGradient{{teal.faded(0.4), teal.faded(0)}, {12, 10}, 0, 62});
    context.fill(square, RadialGradient{{pink.faded(0.38), pink.faded(0)}, {92, 94}, 0, 66});
    const Path rim = Path::roundedRect({4.9, 4.9, 90.2, 90.2}, 21.1, CornerStyle::continuous);
    context.stroke(
        rim, LinearGradient{{teal.faded(0.85), violet.faded(0.7), pink.faded(0.85)}, {4, 4}, {96, 96}},
        StrokeStyle::plain(1.8)
    );
}

/// A star of four points whose sides bend inwards.
void drawStar(GraphicsContext& context, Point center, double radius, const Color& color) {
    Path star;
    star.move({center.x, center.y - radius});
    for (int point = 1; point <= 4; ++point) {
        const double angle = point * pi / 2 - pi / 2;
        star.addQuadCurve({center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)}, center);
    }
    star.closeSubpath();
    context.fill(star, color);
}

void drawStars(GraphicsContext& context) {
    drawStar(context, {80, 21}, 7.5, amber);
    drawStar(context, {19, 30}, 4.2, Color::white(0.9));
    drawStar(context, {50, 14.5}, 3.2, Color::white(0.75));
    for (const Point dot : {Point{33, 17}, Point{66, 27}, Point{87, 43}, Point{13, 52}}) {
        context.fill(Path::ellipse({dot.x - 0.9, dot.y - 0.9, 1.8, 1.8}), Color::white(0.6));
    }
}

constexpr Rect head{20, 38, 60, 48};

/// A soft light that fades to nothing at the edge of an ellipse.
void drawLight(GraphicsContext& context, const Rect& ellipse, const Color& color) {
    GraphicsContext placed = context;
    placed.translateBy(ellipse.x + ellipse.width / 2, ellipse.y + ellipse.height / 2);
    placed.scaleBy(ellipse.width / 2, ellipse.height / 2);
    placed.fill(
        Path::ellipse({-1, -1, 2, 2}),
        RadialGradient{{color, color.faded(0.35), color.faded(0)}, {0, 0}, 0, 1}
    );
}

void drawHead(GraphicsContext& context, bool detailed) {
    drawLight(context, {6, 26, 88, 70}, teal.faded(0.75));
    const LinearGradient fur = downwards({furTop, furBottom}, 24, head.maxY());
    const std::array ears{Rect{27, 24, 13, 26}, Rect{60, 24, 13, 26}};
    for (const Rect& ear : ears) {
        context.fill(Path::roundedRect(ear, 6.5), fur);
        if (detailed) {
            context.fill(Path::roundedRect({ear.x + 4, 28.5, 5, 12}, 2.5), pink.faded(0.55));
        }
    }
    context.fill(Path::roundedRect(head, 20, CornerStyle::continuous), fur);
    if (detailed) {
        // Light from above left on the forehead.
        drawLight(context, {23, 39, 34, 14}, Color::white(0.6));
    }
}

void drawFace(GraphicsContext& context, bool detailed) {
    for (const double x : {35.0, 57.0}) {
        context.fill(Path::roundedRect({x, 51, 8, 16}, 4), ink);
        context.fill(Path::ellipse({x + 1.6, 53, 3.4, 3.8}), Color::white(0.95));
        if (detailed) {
            context.fill(Path::ellipse({x + 4.2, 61.4, 1.8, 2}), Color::white(0.6));
        }
    }
    Path smile;
    smile.move({45.5, 70.5});
    smile.addQuadCurve({54.5, 70.5}, {50, 76.5});
    context.stroke(smile, ink, StrokeStyle::round(2.4));
    for (const double x : {24.5, 67.5}) {
        context.fill(Path::ellipse({x, 67, 8, 5}), pink.faded(detailed ? 0.6 : 0.75));
    }
}

} // namespace

void drawIcon(GraphicsContext& context, int side) {
    if (side <= simpleSide) {
        SimpleIcon(context, side).draw();
        return;
    }
    constexpr int detailedSide = 48;
    const bool detailed = side >= detailedSide;
    GraphicsContext scaled = context;
    scaled.scaleBy(side / 100.0, side / 100.0);
    drawNight(scaled);
    if (detailed) {
        drawStars(scaled);
    }
    drawHead(scaled, detailed);
    drawFace(scaled, detailed);
}

} // namespace mimkins::app_icon
