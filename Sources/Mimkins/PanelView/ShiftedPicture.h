#pragma once

#include <QImage>

namespace mimkins {

/// A picture that stands some points to the right of where it stood, or to the left of it if they are
/// negative, between two pixels if need be. What leaves the picture is gone. Premultiplied, 32 bits a pixel.
QImage shifted(const QImage& picture, double points);

} // namespace mimkins
