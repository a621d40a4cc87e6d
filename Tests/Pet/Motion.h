#pragma once

#include "Drawing/RecordingCanvas.h"
#include "Pet/PetPainter.h"
#include "Pet/PosterTime.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace mimkins::test {

/// A routine at one moment of a pet's clock.
struct Moment {
    Routine routine = Routine::lookAroundScene;
    double t = 0; ///< seconds of the clock; the phase too, of a routine that takes one
    std::uint64_t seed = 168;
    int effort = 0;
    double elapsed = 60; ///< seconds in the state
    std::optional<bool> manner = {};
};

/// What a routine draws at a moment, in units.
std::vector<DrawCommand> record(const Moment& moment);

/// What an action draws at a moment, in units.
std::vector<DrawCommand> recordAction(const PetFrame& frame, PetAction action);

/// The corners, ends and control points of what a command draws, in units: the box's corners for ellipses and
/// rounded rectangles, the centre alone for text.
std::vector<Point> positions(const DrawCommand& command);

/// Half of the line's width in units, 0 for a filled shape.
double reach(const DrawCommand& command);

/// True if both have the same kind and the same number of positions, so that they can be compared point by
/// point.
bool haveSameShape(const DrawCommand& left, const DrawCommand& right);

/// How far the command's farthest moving point has gone.
double distance(const DrawCommand& left, const DrawCommand& right);

} // namespace mimkins::test
