#include "PanelView/PetPicture.h"

#include "Drawing/Qt/QtGlyphOutlines.h"
#include "Drawing/RasterCanvas.h"
#include "Pet/PetPainter.h"

#include <cmath>

namespace mimkins {

void PetPicture::draw(
    QPainter& painter, QPointF topLeft, double side, const Pet& pet, const CardLook& look, Date at
) {
    const double ratio = painter.device()->devicePixelRatio();
    const int pixels = static_cast<int>(std::lround(side * ratio));
    if (image_.width() != pixels) {
        image_ = QImage(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    }
    image_.setDevicePixelRatio(ratio);
    image_.fill(Qt::transparent);
    const Bitmap bitmap{
        reinterpret_cast<std::uint32_t*>(image_.bits()), pixels, pixels,
        static_cast<int>(image_.bytesPerLine() / 4)};
    RasterCanvas canvas(bitmap, ratio, look.scheme(), &QtGlyphOutlines::shared());
    PetPainter painted(GraphicsContext(canvas), side, side, petFrame(pet, look.pets, at));
    painted.draw(actionOnStage(pet, look.pets));
    painter.drawImage(topLeft, image_);
}

bool isCalm(const Pet& pet, const CardLook& look) {
    return !look.pets.party && isCalm(pet.action);
}

} // namespace mimkins
