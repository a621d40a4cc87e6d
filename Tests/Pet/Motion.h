#pragma once

#include "Drawing/RecordingCanvas.h"
#include "Pet/PetPainter.h"
#include "Pet/PosterTime.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
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
    double thin = 0; ///< taken off each side of the body
};

/// What a routine draws at a moment, in units.
std::vector<DrawCommand> record(const Moment& moment);

/// The corners, ends and control points of what a command draws, in units: the box's corners for ellipses and
/// rounded rectangles, the centre alone for text.
std::vector<Point> positions(const DrawCommand& command);

/// Half of the line's width in units, 0 for a filled shape.
double reach(const DrawCommand& command);

/// What a frame draws and where, worked out once. One that is taken again uses its memory again.
class Shot {
public:
    void take(const Moment& moment);
    void take(const PetFrame& frame, PetAction action);

    const std::vector<DrawCommand>& commands() const { return canvas_.commands(); }

    std::size_t size() const { return commands().size(); }

    /// As `positions` gives them.
    std::span<const Point> points(std::size_t command) const;

private:
    void locate();

    RecordingCanvas canvas_;
    std::vector<Point> points_;
    std::vector<std::size_t> ends_; ///< where the points of each command end
};

/// True if both draw the same kinds of things with the same numbers of positions, so that they can be
/// compared point by point.
bool haveSameShapes(const Shot& left, const Shot& right);

/// How far the farthest moving of so many points has gone.
double distance(std::span<const Point> from, std::span<const Point> to);

double opacity(const DrawCommand& command);

/// All that is drawn, as text that can be compared.
std::string inJson(const std::vector<DrawCommand>& commands);

} // namespace mimkins::test
