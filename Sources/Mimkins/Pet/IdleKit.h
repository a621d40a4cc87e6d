#pragma once

#include "Pet/PetPainter.h"

#include <string_view>

/// What several idle routines share.
namespace mimkins::idle {

/// An arm is told by where it bends to and where its hand is.
struct ArmPose {
    Point control;
    Point hand;
};

/// As `armDown` draws it.
ArmPose restingArm(const PetPainter& pet, Side side);
ArmPose mix(const ArmPose& from, const ArmPose& to, double part);
void drawArm(const PetPainter& pet, Side side, const ArmPose& pose);
/// Seen from the left side; mirrored for the right.
Point mirrored(Side side, Point left);

/// Breathing at rest: what the body rises by.
double breath(const PetPainter& pet);
void cheeks(const PetPainter& pet, double opacity);
/// A word with a dark edge below it, so that it reads on any ground.
void shout(const PetPainter& pet, std::string_view text, Point center, double size, const Color& color);
/// Legs that leave the ground with the body, feet hanging; `apart` spreads them.
void hangingLegs(const PetPainter& pet, double lift, double apart);

} // namespace mimkins::idle
