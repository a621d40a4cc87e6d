#include "Pet/IdleKit.h"
#include "Pet/IdleScenes.h"
#include "Pet/Tempo.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mimkins::scene {

using namespace idle;
using tempo::between;
using tempo::pi;
using tempo::present;

namespace {

constexpr double blastTime = 2.8;

/// Three gasps, each deeper, from 0 to 1.
double gasped(double phase) {
    const double breaths =
        0.28 * between(phase, 0.6, 0.95) + 0.3 * between(phase, 1.2, 1.55) + 0.42 * between(phase, 1.85, 2.4);
    return breaths * (1 - between(phase, blastTime - 0.08, blastTime + 0.08));
}

double blasted(double phase) {
    return present(phase, {blastTime - 0.08, blastTime + 0.1, 3.2, 3.9});
}

void sneezingFace(const PetPainter& pet, double phase, double gasp) {
    const bool pinched = (phase > 1.9 && phase < 3.7);
    if (pinched) {
        const double y = pet.eyeLine() + 5;
        pet.line({{36, y - 3.5}, {43, y}, {36, y + 3.5}}, pet.colors.ink, 2.6);
        pet.line({{64, y - 3.5}, {57, y}, {64, y + 3.5}}, pet.colors.ink, 2.6);
    } else {
        pet.eyes(phase > 3.7 && phase < 5.4 ? Eyes::look(0, 1.5) : Eyes::look(0, -3 * gasp));
    }
    const Point lips{50, pet.mouthLine() + 2};
    if (phase > 0.6 && phase < 3.6) {
        const double wide = phase < blastTime ? 0.5 + 0.8 * gasp : 1.5;
        pet.scaled(lips, wide, wide).mouth(Mouth::open);
    } else {
        pet.mouth(phase < 4 || phase > 5.4 ? Mouth::smile : Mouth::wavy);
    }
    const double red = present(phase, {0.3, 1.2, 5.0, 5.8});
    pet.ellipse(46.6, pet.mouthLine() - 8.4, 6.8, 5.2, Color{0.95, 0.25, 0.3, 0.85 * red});
}

void spray(const PetPainter& pet, double since) {
    if (since <= 0 || since >= 0.9) {
        return;
    }
    const double f = since / 0.9;
    const double far = 1 - (1 - f) * (1 - f);
    const PetPainter fading = pet.faded(1 - f);
    const Point from{50, pet.mouthLine() + 3};
    for (const double angle : {-0.1, 0.45, 1.1, 2.04, 2.7, 3.25}) {
        const double reach = 8 + 34 * far;
        const Point at{from.x + reach * std::cos(angle), from.y + 0.62 * reach * std::sin(angle)};
        fading.disc(at, 3.2 + 2.2 * far, Color{0.78, 0.92, 1});
        fading.disc({at.x + 5 * std::cos(angle), at.y - 4}, 1.6, Color{0.4, 0.72, 1});
    }
}

ArmPose sneezingArm(const PetPainter& pet, Side side, double gasp, double blast) {
    const ArmPose rest = restingArm(pet, side);
    const ArmPose up{mirrored(side, {6, pet.bob + 66}), mirrored(side, {19, pet.bob + 43})};
    const ArmPose flung{mirrored(side, {16, pet.bob + 52}), mirrored(side, {6, pet.bob + 40})};
    return idle::mix(idle::mix(rest, up, gasp), flung, blast);
}

} // namespace

void sneeze(PetPainter& pet, double phase) {
    const double gasp = gasped(phase);
    const double blast = blasted(phase);
    pet.bob = breath(pet) - 3 * gasp + 4 * blast;
    pet.squash = -4 * gasp + 8 * blast;
    pet.shadow();
    hangingLegs(pet, 0, 6 * blast);
    pet.torso();
    sneezingFace(pet, phase, gasp);
    spray(pet, phase - blastTime);
    drawArm(pet, Side::left, sneezingArm(pet, Side::left, gasp, blast));
    const double wipe = present(phase, {4.0, 4.4, 5.1, 5.6});
    const ArmPose nose{{90, pet.bob + 74}, {53 + 2.5 * std::sin(9 * phase), pet.mouthLine() - 3}};
    drawArm(pet, Side::right, idle::mix(sneezingArm(pet, Side::right, gasp, blast), nose, wipe));
    if (phase > blastTime && phase < 4.2) {
        const double grown = 0.6 + 0.4 * between(phase, blastTime, blastTime + 0.2);
        const PetPainter fading = pet.faded(1 - between(phase, 3.8, 4.2));
        shout(fading, "achoo!", {50, 15}, 19 * grown, Color::named(NamedColor::yellow));
    }
}

namespace {

constexpr Color gum{1, 0.5, 0.74};
constexpr Color gumEdge{0.72, 0.18, 0.45};
constexpr double popTime = 3.95;

void gumBubble(const PetPainter& pet, double radius) {
    const Point center{50, pet.mouthLine() + 0.4 * radius};
    pet.disc(center, radius + 0.9, gumEdge);
    pet.disc(center, radius, gum);
    pet.ellipse(
        center.x - 0.62 * radius, center.y - 0.66 * radius, 0.55 * radius, 0.36 * radius, Color::white(0.8)
    );
}

void burst(const PetPainter& pet, double since) {
    if (since <= 0 || since >= 0.35) {
        return;
    }
    const double f = since / 0.35;
    const PetPainter fading = pet.faded(1 - f * f);
    const Point center{50, pet.mouthLine() + 6};
    for (int ray = 0; ray < 8; ++ray) {
        const double angle = pi * (ray + 0.5) / 4;
        const auto at = [&](double radius) {
            return Point{center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
        };
        fading.line({at(15 + 8 * f), at(21 + 10 * f)}, gum, 3.4);
    }
}

/// What hangs round the mouth after the burst.
void splat(const PetPainter& pet, double size, double sag) {
    const Point center{50, pet.mouthLine()};
    const PetPainter sticking = pet.scaled(center, size, size);
    const double x = center.x;
    const double y = center.y;
    for (const bool edge : {true, false}) {
        const double more = edge ? 1 : 0;
        const Color& color = edge ? gumEdge : gum;
        sticking.ellipse(x - 16 - more, y - 7 - more, 32 + 2 * more, 13 + 2 * more, color);
        sticking.line({{x - 8, y}, {x - 8, y + 9 + 5 * sag}}, color, 6.4 + 2 * more);
        sticking.line({{x + 1, y}, {x + 1, y + 6 + 2 * sag}}, color, 5.4 + 2 * more);
        sticking.line({{x + 9, y}, {x + 9, y + 8 + 8 * sag}}, color, 7 + 2 * more);
    }
    sticking.ellipse(x - 12, y - 5, 8, 3.4, Color::white(0.7));
    sticking.line({{center.x - 3, center.y}, {center.x + 3, center.y}}, pet.colors.ink, 2.2);
}

void chewing(const PetPainter& pet, double phase) {
    const double jaw = std::sin(9 * phase);
    pet.scaled({50 + jaw, pet.mouthLine() + 1}, 1 + 0.15 * jaw, 0.7 + 0.3 * jaw).mouth(Mouth::small);
}

Eyes gumEyes(double phase) {
    if (phase > popTime && phase < 4.5) {
        return Eyes::closed();
    }
    if (phase > 2.5 && phase < 5.1) {
        return Eyes::wide();
    }
    return Eyes::look(0, phase > 1.3 && phase < popTime ? 2 : 0);
}

} // namespace

void bubbleGum(PetPainter& pet, double phase) {
    const double blown = between(phase, 1.2, 3.9) + 0.03 * std::sin(7 * phase) * between(phase, 1.2, 2);
    const double lifted = between(phase, 2.3, 3.8) * (1 - between(phase, popTime, 4.2));
    const double fall = tempo::tremor(phase - 4.2, 11, 4);
    pet.bob = breath(pet) - lifted * (8 + std::sin(5 * phase));
    pet.squash = 0.7 * std::sin(9 * phase) * (1 - lifted) + 4 * fall;
    pet.shadow();
    hangingLegs(pet, std::max(-pet.bob - 1, 0.0), 0);
    pet.torso();
    pet.eyes(gumEyes(phase));
    const bool bubbled = phase > 1.2 && phase < popTime;
    const double stuck = phase < popTime ? 0 : 1 - between(phase, 4.9, 5.4);
    if (!bubbled && stuck <= 0) {
        chewing(pet, phase);
    }
    const double spread = lifted * (12 + 2 * std::sin(7 * phase));
    pet.armDown(Side::left, -0.5 * spread);
    pet.armDown(Side::right, 0.5 * spread);
    if (bubbled) {
        gumBubble(pet, 1 + 15.5 * std::max(blown, 0.0));
    } else if (stuck > 0) {
        splat(pet, stuck, between(phase, popTime, 5.2));
    }
    burst(pet, phase - popTime);
}

namespace {

constexpr double hicCycle = 1.3;
constexpr double hicJolt = 0.12;
constexpr double hicWord = 0.45;

} // namespace

void hiccups(PetPainter& pet) {
    const double time = pet.t - hicCycle * std::floor(pet.t / hicCycle);
    const double jolt = time < hicJolt ? std::sin(pi * time / hicJolt) : 0;
    const double after = tempo::tremor(time - hicJolt, 14, 5);
    pet.bob = -7 * jolt;
    pet.squash = -3 * jolt + 4 * after - 1.5 * between(time, 0.85, 1.2) * (1 - between(time, 1.2, hicCycle));
    pet.shadow();
    hangingLegs(pet, 6 * jolt, 3 * jolt);
    pet.torso();
    const bool odd = std::fmod(std::floor(pet.t / hicCycle), 2) != 0;
    pet.eyes(time < 0.5 ? Eyes::wide() : Eyes::look(odd ? 3 : -3, -1));
    pet.mouth(time < 0.3 ? Mouth::open : Mouth::wavy);
    cheeks(pet, 1);
    pet.armDown(Side::left, -6 * jolt);
    const double hush = present(time, {0.1, 0.3, 0.75, 1.1});
    const ArmPose onMouth{{86, pet.bob + 76}, {54, pet.mouthLine() + 3}};
    drawArm(pet, Side::right, idle::mix(restingArm(pet, Side::right), onMouth, hush));
    if (time < hicWord) {
        const double f = time / hicWord;
        const PetPainter fading = pet.faded(1 - between(time, 0.36, hicWord));
        shout(fading, "hic!", {78, 26 - 20 * f}, 15, Color::named(NamedColor::yellow));
    }
}

} // namespace mimkins::scene
