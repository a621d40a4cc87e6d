#pragma once

#include <QImage>

namespace mimkins {

/// Draws a picture some points to the right of where it stood, or to the left of it if they are negative,
/// between two pixels if need be. What leaves the picture is gone. Premultiplied, 32 bits a pixel. The
/// result's memory is used again if it has the picture's size.
void shift(const QImage& picture, double points, QImage& result);

} // namespace mimkins
