#pragma once

#include "Pet/PetPainter.h"
#include "Pet/PropColors.h"
#include "Pet/Tempo.h"

/// What several scenes of waiting share: hops, brows, a pointing hand, sparkles.
namespace mimkins::scene {

using prop::brown;
using tempo::between;
using tempo::during;
using tempo::mix;
using tempo::pi;
using tempo::within;

/// One hop of a cycle from 0 to 1: crouch, flight, landing.
struct Hop {
    double height = 0; ///< 0 on the ground, 1 at the top
    double crouch = 0; ///< 0 upright, 1 ready to leap
};

Hop hop(double phase);

/// Sets the body for a hop that goes so high, in units.
void leap(PetPainter& pet, const Hop& hop, double height);

/// Legs that keep the ground as long as they can, and open a little in the air.
void hopLegs(const PetPainter& pet, const Hop& hop);

/// Lines over the eyes: `lift` moves them up, a positive `slant` looks cross, a negative one worried.
void brows(const PetPainter& pet, double lift, double slant);

/// Eyes under heavy lids that look to a side.
void sleepyEyes(const PetPainter& pet, double dx);

/// A wide open, laughing mouth.
void grin(const PetPainter& pet);

/// A finger of a hand, `angle` clockwise from straight up in radians.
void finger(const PetPainter& pet, Point hand, double angle);

/// A star of four rays.
void sparkle(const PetPainter& pet, Point center, double radius);

/// Lowers the body to the ground, with a breath that goes from -1 to 1.
void sit(PetPainter& pet, double breath);

} // namespace mimkins::scene
