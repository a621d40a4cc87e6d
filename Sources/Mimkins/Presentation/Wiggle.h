#pragma once

namespace mimkins {

/// How far the shaking edge tab is to the right at a moment, in points: a short shake every 2.2
/// seconds that dies away within half a second. `t` is in seconds since 1 January 2001.
double wiggleOffset(double t);

/// The seconds from a moment to the one at which the tab has to be drawn again because of that: a frame
/// during the shake, and the rest of the cycle between two.
double nextWiggle(double t);

} // namespace mimkins
