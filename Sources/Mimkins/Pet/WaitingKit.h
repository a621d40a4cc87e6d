#pragma once

#include "Pet/PetPainter.h"

/// What several scenes of waiting share: easing, hops, brows, a pointing hand, sparkles.
namespace mimkins::scene {

constexpr double pi = 3.14159265358979323846;
constexpr Color wood{0.55, 0.38, 0.22};

/// Seconds into a cycle of the clock.
double cycle(double t, double length);

/// 0 before the first, 1 after the second value, with soft ends between them.
double ramp(double value, double from, double to);

/// 0 outside the two values, 1 between them, with soft flanks of a width inside them.
double window(double value, double from, double to, double flank);

double between(double from, double to, double share);
Point between(Point from, Point to, double share);

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
