#pragma once

#include <QPainterPath>
#include <QRectF>

namespace mimkins {

/// A shape that hugs the right edge of the screen: its left corners rounded, its right ones square.
QPainterPath edgeShape(const QRectF& rect, double radius);

/// The radius of the drawer's left corners, and of the tab's.
inline constexpr double drawerRadius = 18;
inline constexpr double tabRadius = 11;

/// The application's icon as a path that fills the square, its eyes punched out.
QPainterPath appIconPath(const QRectF& square);

} // namespace mimkins
