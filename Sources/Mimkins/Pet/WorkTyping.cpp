#include "Pet/WorkMotion.h"
#include "Pet/WorkScenes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mimkins::scene {

namespace {

using namespace work;

constexpr double typingRate = 22;

void typingHands(const PetPainter& pet) {
    const double beat = std::sin(typingRate * pet.t);
    const Point left = pet.shoulder(Side::left);
    const Point right = pet.shoulder(Side::right);
    pet.arm(
        Side::left, {left.x - 2, pet.bob + 68}, {left.x + 10, pet.bob + 56 + 17 - 3 * std::max(beat, 0.0)}
    );
    pet.arm(
        Side::right, {right.x + 2, pet.bob + 68}, {right.x - 10, pet.bob + 56 + 17 + 3 * std::min(beat, 0.0)}
    );
}

// The sheet stands on an easel beside the pet.
constexpr Rect sheet{61, 42, 33, 40};
constexpr std::array<double, 3> rows{53, 62, 71};
constexpr double rowStart = 66;
constexpr double rowEnd = 87;

constexpr double pageSeconds = 4.2;
constexpr double rowShare = 0.26;    ///< of a page's time, for each of the rows; then the page is turned
constexpr double returnShare = 0.22; ///< of a row's time, for the way to its start

struct Writing {
    std::array<double, 3> done{}; ///< of each row
    Point tip;
    double turned = 0; ///< of the page
};

Writing writingAt(double t) {
    const double c = cycleOf(t, pageSeconds);
    Writing writing;
    writing.tip = {rowStart, rows[0]};
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const double share = (c - rowShare * static_cast<double>(row)) / rowShare;
        writing.done[row] = std::clamp((share - returnShare) / (1 - returnShare), 0.0, 1.0);
        if (share >= 0) {
            const Point from{row == 0 ? rowStart : rowEnd, rows[row == 0 ? 0 : row - 1]};
            const Point start = mix(from, {rowStart, rows[row]}, between(share, 0, returnShare));
            const double wiggle = 1.6 * std::sin(28 * writing.done[row]);
            writing.tip = {mix(start.x, rowEnd, writing.done[row]), start.y + wiggle};
        }
    }
    writing.turned = between(c, 0.84, 0.94);
    const Point home{rowStart, rows[0]};
    writing.tip = mix(writing.tip, home, between(c, 0.86, 1));
    return writing;
}

void easel(const PetPainter& pet) {
    pet.line({{70, 80}, {66, 91}}, darkBrown, 3);
    pet.line({{85, 80}, {89, 91}}, darkBrown, 3);
    pet.rounded(sheet.x - 3, sheet.y - 3, sheet.width + 6, sheet.height + 6, 3, brown);
    edgedBox(pet, sheet, 1.5, pet.colors.paper, 0.8);
}

void writtenPage(const PetPainter& pet, const Writing& writing) {
    if (writing.turned >= 1) {
        return;
    }
    const PetPainter page = pet.scaled({sheet.x, sheet.y}, 1, 1 - writing.turned);
    if (writing.turned > 0) {
        edgedBox(page, sheet, 1.5, Color::grey(0.9), 0.8);
    }
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (writing.done[row] > 0) {
            page.line(
                {{rowStart, rows[row]}, {mix(rowStart, rowEnd, writing.done[row]), rows[row]}},
                Color::grey(0.35), 2.4
            );
        }
    }
}

void pencilWithTip(const PetPainter& pet, Point tip) {
    const PetPainter turned = pet.turned(tip, 0.42);
    const auto place = [&](double x, double y) { return Point{tip.x + x, tip.y + y}; };
    turned.rounded(tip.x - 3, tip.y - 27, 6, 21, 1, Color::named(NamedColor::yellow));
    turned.rounded(tip.x - 3, tip.y - 30, 6, 6, 2.4, Color::named(NamedColor::pink));
    turned.rounded(tip.x - 3.2, tip.y - 25.6, 6.4, 2, 0, Color::grey(0.75));
    turned.polygon({place(-3, -6.5), place(3, -6.5), place(0, 0)}, parchment);
    turned.polygon({place(-1.2, -2.6), place(1.2, -2.6), place(0, 0)}, pet.colors.ink);
    turned.stroke(Path::roundedRect({tip.x - 3, tip.y - 30, 6, 24}, 2), edge, 0.8);
}

} // namespace

void laptop(PetPainter& pet) {
    pet.shadow();
    pet.leg({40, pet.bob + 74}, {40, 89}, {33, 87});
    pet.leg({60, pet.bob + 74}, {60, 89}, {57, 87});
    pet.torso();
    pet.eyes(Eyes::look(0, 3));
    pet.mouth(Mouth::flat);
    pet.rounded(32.7, 52.7, 34.6, 23, 4.3, Color::black(0.5));
    pet.rounded(34, 54, 32, 21, 3, Color::grey(0.72));
    pet.ellipse(47, 62, 6, 6, Color::white(0.9));
    pet.rounded(26.8, 72.8, 46.4, 6.4, 3.2, Color::black(0.5));
    pet.rounded(28, 74, 44, 4, 2, Color::grey(0.5));
    typingHands(pet);
}

void pencil(PetPainter& pet) {
    pet.shiftX = -11 + 1.2 * std::sin(0.25 * pet.t);
    const Writing writing = writingAt(pet.t);
    pet.bob = -1.2 * std::sin(3.1416 * writing.turned);
    pet.standing(
        Legs::still, Eyes::look(2.5 + (writing.tip.x - 76) / 8, 1 + (writing.tip.y - 60) / 6), Mouth::smile
    );
    pet.ellipse(53, pet.mouthLine() - 0.5, 5, 5, Color::named(NamedColor::pink));
    pet.armsOnHipsLeftOnly();
    const PetPainter stand = unshifted(pet);
    easel(stand);
    writtenPage(stand, writing);
    pencilWithTip(stand, writing.tip);
    const Point hand{writing.tip.x + 3.2, writing.tip.y - 9};
    armTo(pet, Side::right, {mix(65, hand.x, 0.5), mix(56, hand.y, 0.5) + 7}, hand);
}

} // namespace mimkins::scene
