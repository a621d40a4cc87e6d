#pragma once

#include "Drawing/GraphicsContext.h"
#include "Pet/PetFrame.h"
#include "Pet/Routine.h"

#include <initializer_list>
#include <string_view>

namespace mimkins {

enum class Side { left, right };

/// +1 for the left and -1 for the right: towards the middle of the body.
constexpr double inward(Side side) {
    return side == Side::left ? 1 : -1;
}

struct Eyes {
    enum class Kind { looking, wide, happy, closed };

    Kind kind = Kind::looking;
    double dx = 0;
    double dy = 0;

    static constexpr Eyes look(double dx, double dy) { return {Kind::looking, dx, dy}; }

    static constexpr Eyes wide() { return {Kind::wide, 0, 0}; }

    static constexpr Eyes happy() { return {Kind::happy, 0, 0}; }

    static constexpr Eyes closed() { return {Kind::closed, 0, 0}; }
};

enum class Legs { still, tapping, tucked, spread, walking };
enum class Mouth { none, flat, small, smile, wavy, open, whistle };
enum class Steam { none, rising };
enum class Pulse { none, beating };

/// Draws one frame of a pet in a square of 100 by 100 units, y downwards. A scene says where the limbs go and
/// what they hold; the kit below makes all of them one kind of creature. What a scene sets of `bob`,
/// `squash`, `shiftX`, `thin` and the colours holds for the rest of the frame.
struct PetPainter : PetFrame {
    /// Fits the square into the middle of a canvas of this size in points.
    PetPainter(const GraphicsContext& context, double width, double height, const PetFrame& frame);

    /// Draws what the frame's choices put on stage for an action.
    void draw(PetAction action);
    /// Draws one routine.
    void perform(const Cue& cue);

    GraphicsContext gc; ///< in units
    double s;           ///< points a unit
    Point origin;       ///< of the square on the canvas, points
    double bob = 0;     ///< of the body: negative is up
    double squash = 0;  ///< lowers the top of the body
    double shiftX = 0;  ///< of everything, to the right
    double thin = 0;    ///< taken off each side of the body

    // Shapes, in units before `shiftX`, which is added.

    void fill(const Path& path, const Shading& shading) const;
    void stroke(const Path& path, const Shading& shading, double width) const;
    void ellipse(double x, double y, double width, double height, const Shading& shading) const;
    void disc(Point center, double radius, const Shading& shading) const;
    void ring(Point center, double radius, const Color& color, double width) const;
    void
    rounded(double x, double y, double width, double height, double radius, const Shading& shading) const;
    void line(std::initializer_list<Point> points, const Color& color, double width) const;
    /// A quadratic curve with round ends.
    void curve(Point from, Point control, Point to, const Color& color, double width) const;
    void polygon(std::initializer_list<Point> points, const Shading& shading) const;
    /// Rounded and black, centred on a point.
    void word(std::string_view text, Point center, double size, const Color& color) const;

    // The same painter drawing elsewhere; what it is told is lost with it.

    PetPainter turned(Point about, double angle) const; ///< clockwise, radians
    PetPainter moved(double dx, double dy) const;
    PetPainter scaled(Point about, double x, double y) const;
    PetPainter faded(double opacity) const;

    // The body, in the order in which it is usually drawn.

    void shadow() const;
    void legs(Legs kind) const;
    /// Feet wide apart, for a fight.
    void stanceLegs() const;
    void torso() const;
    void eyes(Eyes kind) const;
    void mouth(Mouth kind) const;
    void armDown(Side side, double swing = 0) const;
    /// A raised arm that waves, `speed` in radians a second.
    void waveArm(Side side, double speed) const;
    void armsOnHips() const;
    void armsOnHipsLeftOnly() const;
    /// An arm from the shoulder to a hand, bent towards the control point.
    void arm(Side side, Point control, Point hand) const;
    /// A leg from its root to a foot whose box begins at the corner and is 11 by 6.
    void leg(Point root, Point ankle, Point footCorner) const;
    /// The whole creature at ease: shadow, legs, torso, eyes that look so, mouth. No arms.
    void standing(Legs legsKind, Eyes eyesKind, Mouth mouthKind) const;

    Point shoulder(Side side) const;

    double eyeLine() const { return bob + 41 + squash / 2; }

    double mouthLine() const { return bob + 59 + squash / 2; }

    /// Where the eyes of a pet go that looks about, units to the right.
    double lookAround() const;

    // Things.

    void bubble(std::string_view text, const Color& color, Pulse pulse) const;
    void sweatDrop(double x, double y) const;
    /// Two notes that rise from a point.
    void notes(double x, double y) const;
    /// Up to three dots that lead to a thought, by turns.
    void thoughtDots() const;
    /// A mug of 10 by 10 whose middle is at a point.
    void mug(Point at, Steam steam) const;
    /// A paper plane that flies to the right, 16 long at scale 1.
    void plane(Point at, double scale) const;
    /// 14 by 18 times the scale, its middle at a point; turned by an angle in radians, with sand that has run
    /// for a fraction.
    void drawHourglass(Point at, double scale, double angle, double run) const;
    void drawHourglass(Point at, double scale) const; ///< flips by itself every four seconds
    /// Behind a pet of high effort.
    void powerAura() const;
    void headband() const;

private:
    GraphicsContext placed() const;
};

/// The fractional part, from 0 up to 1 for negative values too.
double fraction(double value);

} // namespace mimkins
