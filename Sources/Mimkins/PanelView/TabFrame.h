#pragma once

#include <QImage>

namespace mimkins {

/// What the edge tab shows at a moment. Both pictures are premultiplied, 32 bits a pixel, and of one size.
struct TabFrame {
    const QImage& still;   ///< all but the glow, at its ordinary place
    const QImage& outline; ///< the glow at its strongest
    double opacity = 0;    ///< the glow's, from 0 to 1
    double offset = 0;     ///< how far to the right, points
};

/// Memory for composing frames, used again while they have the same size.
struct TabFrameMemory {
    QImage glowing;
    QImage shifted;
};

/// The glow laid over the rest, and both of them moved. The result lies in the memory.
const QImage& composed(const TabFrame& frame, TabFrameMemory& memory);

} // namespace mimkins
