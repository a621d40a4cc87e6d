#include "PanelView/StretchedPicture.h"

#include <cmath>
#include <cstring>

namespace mimkins {

QImage stretched(const QImage& low, int height) {
    QImage picture(low.width(), height, low.format());
    picture.setDevicePixelRatio(low.devicePixelRatio());
    const int upper = low.height() / 2;
    const int added = height - low.height();
    for (int row = 0; row < height; ++row) {
        const int source = row < upper ? row : row < upper + added ? upper : row - added;
        std::memcpy(
            picture.scanLine(row), low.constScanLine(source), static_cast<std::size_t>(low.bytesPerLine())
        );
    }
    return picture;
}

QImage clearPicture(QSize size, double pixelRatio) {
    QImage picture((QSizeF(size) * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    return picture;
}

bool canStretch(double pixelRatio) {
    return pixelRatio == std::floor(pixelRatio);
}

} // namespace mimkins
