#include "Pet/MiniHead.h"

#include <algorithm>

namespace mimkins {

namespace {

Color shade(double hue, const PetLook& look, double saturation, double brightness) {
    return Color::hsb(
        hue, std::min(saturation * look.saturation, 1.0), std::min(brightness * look.brightness, 1.0)
    );
}

void drawFace(GraphicsContext& context, const PetLook& look, double hue) {
    const Path face =
        Path::roundedRect({0, 0, MiniHead::width, MiniHead::height}, 4, CornerStyle::continuous);
    context.fill(
        face,
        LinearGradient{
            {shade(hue, look, 0.45, 0.97), shade(hue, look, 0.6, 0.8)}, {0, 0}, {0, MiniHead::height}}
    );
    const Path edge = Path::roundedRect(
        {0.5, 0.5, MiniHead::width - 1, MiniHead::height - 1}, 3.5, CornerStyle::continuous
    );
    context.stroke(edge, look.outline.value_or(Color::black(0.35)), StrokeStyle::plain(1));
}

void drawEyes(GraphicsContext& context) {
    constexpr double eyeWidth = 1.8;
    constexpr double eyeHeight = 3.6;
    constexpr double gap = 3;
    const double y = MiniHead::height / 2 - 0.5 - eyeHeight / 2;
    for (const double x : {MiniHead::width / 2 - gap / 2 - eyeWidth, MiniHead::width / 2 + gap / 2}) {
        context.fill(Path::roundedRect({x, y, eyeWidth, eyeHeight}, eyeWidth / 2), Color::black(0.85));
    }
}

} // namespace

double MiniHead::hue(const PetLook& look) const {
    return look.hue ? *look.hue + static_cast<double>(seed % 40) / 1000
                    : static_cast<double>(seed % 360) / 360;
}

void MiniHead::draw(GraphicsContext& context, const PetLook& look) const {
    drawFace(context, look, hue(look));
    drawEyes(context);
    if (boost == 1) {
        Path band;
        band.addRoundedRect({0, 2, width, 2}, 0);
        context.fill(band, Color{0.9, 0.2, 0.25});
    } else if (boost == 2) {
        constexpr double line = 1.2;
        const double left = (width - 11) / 2;
        context.stroke(
            Path::ellipse({left + line / 2, -5 + line / 2, 11 - line, 4 - line}), Color{1, 0.85, 0.4},
            StrokeStyle::plain(line)
        );
    }
}

} // namespace mimkins
