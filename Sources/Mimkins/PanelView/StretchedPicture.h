#pragma once

#include <QImage>

namespace mimkins {

/// A picture so many pixels high, of something that looks the same all the way between its ends: the upper
/// half of `low` at the top, the lower half at the bottom, and its middle row between them as often as
/// needed. No height is less than that of `low`.
QImage stretched(const QImage& low, int height);

/// How far a continuous corner reaches along a side, in radii.
inline constexpr double cornerReach = 1.6;

/// A clear picture for a widget of this size.
QImage clearPicture(QSize size, double pixelRatio);

/// True if a low picture can stand for higher ones at this ratio of pixels to points: the edges of what it
/// shows then lie on pixels in both.
bool canStretch(double pixelRatio);

} // namespace mimkins
