#pragma once

#include "Drawing/Path.h"

#include <QPainterPath>
#include <QRectF>

namespace mimkins {

namespace qt {

/// The same outline; what lies inside is told by winding.
QPainterPath path(const Path& source);

} // namespace qt

/// A rectangle with continuous corners.
QPainterPath roundedShape(const QRectF& rect, double radius);

/// A shape that hugs the right edge of the screen: its left corners rounded, its right ones square.
QPainterPath edgeShape(const QRectF& rect, double radius);

/// The radius of the drawer's left corners, and of the tab's.
inline constexpr double drawerRadius = 18;
inline constexpr double tabRadius = 11;

/// The application's icon as a path that fills the square, its eyes punched out.
QPainterPath appIconPath(const QRectF& square);

} // namespace mimkins
