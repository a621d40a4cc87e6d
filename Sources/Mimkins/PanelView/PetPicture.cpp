#include "PanelView/PetPicture.h"

#include "Drawing/Qt/QtGlyphOutlines.h"
#include "Drawing/RasterCanvas.h"
#include "Pet/PetPainter.h"

#include <algorithm>
#include <cmath>

namespace mimkins {

const QImage&
PetPicture::at(Date moment, double side, double pixelRatio, const Pet& pet, const CardLook& look) {
    const int pixels = static_cast<int>(std::lround(side * pixelRatio));
    if (image_.width() != pixels) {
        image_ = QImage(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    }
    image_.setDevicePixelRatio(pixelRatio);
    image_.fill(Qt::transparent);
    paint(moment, side, pet, look);
    return image_;
}

const QImage&
PetPicture::over(const QImage& ground, Date moment, double side, const Pet& pet, const CardLook& look) {
    if (image_.size() != ground.size()) {
        image_ = QImage(ground.size(), QImage::Format_ARGB32_Premultiplied);
    }
    image_.setDevicePixelRatio(ground.devicePixelRatio());
    std::copy_n(ground.constBits(), ground.sizeInBytes(), image_.bits());
    paint(moment, side, pet, look);
    return image_;
}

/// Draws the pet over what the picture holds.
void PetPicture::paint(Date moment, double side, const Pet& pet, const CardLook& look) {
    const Bitmap bitmap{
        reinterpret_cast<std::uint32_t*>(image_.bits()), image_.width(), image_.height(),
        static_cast<int>(image_.bytesPerLine() / 4)};
    RasterCanvas canvas(bitmap, image_.devicePixelRatio(), look.scheme(), &QtGlyphOutlines::shared());
    PetPainter painted(GraphicsContext(canvas), side, side, petFrame(pet, look.pets, moment));
    painted.draw(actionOnStage(pet, look.pets));
}

void PetPicture::draw(
    QPainter& painter, QPointF topLeft, double side, const Pet& pet, const CardLook& look, Date moment
) {
    painter.drawImage(topLeft, at(moment, side, painter.device()->devicePixelRatio(), pet, look));
}

bool isCalm(const Pet& pet, const CardLook& look) {
    return !look.pets.party && isCalm(pet.action);
}

} // namespace mimkins
