#include "Drawing/Symbols.h"

#include "Drawing/ThingSymbols.h"

#include <cmath>
#include <numbers>

namespace mimkins {

namespace {

/// Everything is drawn in a square of 16 units.
constexpr double grid = 16;
constexpr double pen = 2;

class Sketch {
public:
    Sketch(const GraphicsContext& context, const Shading& ink) : context_(context), ink_(ink) {}

    void line(const Path& path, double width = pen) {
        context_.stroke(path, ink_, StrokeStyle::round(width));
    }

    void solid(const Path& path) { context_.fill(path, ink_); }

    void disc(Point center, double radius) {
        solid(Path::ellipse({center.x - radius, center.y - radius, 2 * radius, 2 * radius}));
    }

private:
    GraphicsContext context_;
    Shading ink_;
};

void drawStack(Sketch& sketch) {
    sketch.line(Path::roundedRect({6.5, 1.5, 8, 8}, 2), 1.8);
    Path under;
    under.move({3.2, 5.2});
    under.addCurve({1.6, 7}, {2.2, 5.4}, {1.6, 6});
    under.addLine({1.6, 12.4});
    under.addCurve({3.6, 14.4}, {1.6, 13.6}, {2.4, 14.4});
    under.addLine({9, 14.4});
    under.addCurve({10.8, 12.8}, {10, 14.4}, {10.6, 13.8});
    sketch.line(under, 1.8);
}

void drawCircled(Sketch& sketch) {
    sketch.line(Path::ellipse({1.5, 1.5, 13, 13}), 1.6);
}

void drawEllipsis(Sketch& sketch) {
    drawCircled(sketch);
    for (const double x : {4.9, 8.0, 11.1}) {
        sketch.disc({x, 8}, 1.15);
    }
}

void drawFlame(Sketch& sketch) {
    Path flame;
    flame.move({8.6, 0.6});
    flame.addCurve({12.2, 6.2}, {9, 3}, {11, 4});
    flame.addCurve({13.6, 10}, {13.1, 7.4}, {13.6, 8.6});
    flame.addCurve({8, 15.6}, {13.6, 13.2}, {11.2, 15.6});
    flame.addCurve({2.4, 10}, {4.8, 15.6}, {2.4, 13.2});
    flame.addCurve({4.6, 5.4}, {2.4, 8.2}, {3.2, 6.8});
    flame.addCurve({6.2, 8}, {4.8, 6.6}, {5.2, 7.6});
    flame.addCurve({8.6, 0.6}, {6.4, 5.4}, {6.6, 2.4});
    flame.closeSubpath();
    sketch.solid(flame);
}

void drawBolt(Sketch& sketch) {
    sketch.solid(Path::polygon({{9.8, 0.6}, {3, 9.2}, {7.2, 9.2}, {6, 15.4}, {13, 6.4}, {8.6, 6.4}}));
}

void drawNote(Sketch& sketch) {
    sketch.solid(Path::ellipse({2.6, 10, 6.2, 4.8}));
    sketch.line(Path::polyline({{8, 12}, {8, 2}}), 1.7);
    Path flag;
    flag.move({8, 2});
    flag.addCurve({12.6, 8}, {8.6, 4.6}, {13.4, 4.8});
    sketch.line(flag, 1.9);
}

void drawPencil(Sketch& sketch) {
    sketch.line(Path::polygon({{2, 14}, {2.9, 10.4}, {10.8, 2.4}, {13.6, 5.2}, {5.6, 13.1}}), 1.6);
    sketch.line(Path::polyline({{9, 4.4}, {11.7, 7.1}}), 1.4);
    sketch.solid(Path::polygon({{1.8, 14.2}, {2.4, 11.8}, {4.2, 13.6}}));
}

void drawFlower(Sketch& sketch) {
    constexpr int petals = 5;
    for (int petal = 0; petal < petals; ++petal) {
        const double angle = 2 * std::numbers::pi * petal / petals - std::numbers::pi / 2;
        sketch.line(
            Path::ellipse({8 + 4.1 * std::cos(angle) - 2.5, 8.4 + 4.1 * std::sin(angle) - 2.5, 5, 5}), 1.4
        );
    }
    sketch.disc({8, 8.4}, 1.5);
}

void drawBook(Sketch& sketch) {
    Path cover;
    cover.move({13, 11.6});
    cover.addLine({13, 1.6});
    cover.addLine({5, 1.6});
    cover.addCurve({3, 3.6}, {3.8, 1.6}, {3, 2.4});
    cover.addLine({3, 12.8});
    sketch.line(cover, 1.6);
    Path pages;
    pages.move({13, 11.4});
    pages.addLine({4.8, 11.4});
    pages.addCurve({4.8, 14.6}, {2.4, 11.4}, {2.4, 14.6});
    pages.addLine({13, 14.6});
    sketch.line(pages, 1.6);
}

void drawChip(Sketch& sketch) {
    sketch.line(Path::roundedRect({3.6, 3.6, 8.8, 8.8}, 1.6), 1.6);
    sketch.solid(Path::roundedRect({6.2, 6.2, 3.6, 3.6}, 0.6));
    for (const double at : {5.6, 8.0, 10.4}) {
        sketch.line(Path::polyline({{at, 1.2}, {at, 3.4}}), 1.2);
        sketch.line(Path::polyline({{at, 12.6}, {at, 14.8}}), 1.2);
        sketch.line(Path::polyline({{1.2, at}, {3.4, at}}), 1.2);
        sketch.line(Path::polyline({{12.6, at}, {14.8, at}}), 1.2);
    }
}

} // namespace

void drawSymbol(GraphicsContext context, Symbol symbol, double size, const Shading& ink) {
    context.scaleBy(size / grid, size / grid);
    Sketch sketch(context, ink);
    switch (symbol) {
    case Symbol::chevronUp:
        sketch.line(Path::polyline({{2.4, 10.8}, {8, 5.2}, {13.6, 10.8}}), 2.4);
        break;
    case Symbol::chevronDown:
        sketch.line(Path::polyline({{2.4, 5.2}, {8, 10.8}, {13.6, 5.2}}), 2.4);
        break;
    case Symbol::stack:
        drawStack(sketch);
        break;
    case Symbol::ellipsisCircle:
        drawEllipsis(sketch);
        break;
    case Symbol::checkmarkCircle:
        drawCircled(sketch);
        sketch.line(Path::polyline({{5, 8.3}, {7.2, 10.5}, {11, 5.8}}), 1.7);
        break;
    case Symbol::flame:
        drawFlame(sketch);
        break;
    case Symbol::bolt:
        drawBolt(sketch);
        break;
    case Symbol::note:
        drawNote(sketch);
        break;
    case Symbol::pencil:
        drawPencil(sketch);
        break;
    case Symbol::flower:
        drawFlower(sketch);
        break;
    case Symbol::book:
        drawBook(sketch);
        break;
    case Symbol::chip:
        drawChip(sketch);
        break;
    default:
        drawThing(context, symbol, ink);
        break;
    }
}

} // namespace mimkins
