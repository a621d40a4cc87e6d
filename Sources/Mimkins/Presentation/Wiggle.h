#pragma once

namespace mimkins {

/// How far the shaking edge tab is to the right at a moment, in points: a short shake every 2.2
/// seconds that dies away within half a second. `t` is in seconds since 1 January 2001.
double wiggleOffset(double t);

} // namespace mimkins
