#include "PanelView/PetBox.h"

#include "Drawing/Qt/QtGlyphOutlines.h"
#include "Drawing/RasterCanvas.h"
#include "Pet/PetPainter.h"

#include <QPainter>

#include <cmath>

namespace mimkins {

PetBox::PetBox(Pet pet, double points, const CardLook& look)
    : pet_(pet), points_(points), moment_(pet.since) {
    const int side = static_cast<int>(std::ceil(points));
    setFixedSize(side, side);
    setLook(look);
}

void PetBox::setLook(const CardLook& look) {
    pets_ = look.pets;
    scheme_ = look.theme->scheme.value_or(ColorScheme::dark);
    update();
}

void PetBox::setPet(const Pet& pet) {
    if (pet_ != pet) {
        pet_ = pet;
        update();
    }
}

void PetBox::animate(Date now) {
    if (moment_ != now) {
        moment_ = now;
        update();
    }
}

void PetBox::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    const int pixels = static_cast<int>(std::lround(points_ * ratio));
    if (image_.width() != pixels) {
        image_ = QImage(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    }
    image_.setDevicePixelRatio(ratio);
    image_.fill(Qt::transparent);
    const Bitmap bitmap{
        reinterpret_cast<std::uint32_t*>(image_.bits()), pixels, pixels, // NOLINT: that is its format
        static_cast<int>(image_.bytesPerLine() / 4)};
    RasterCanvas canvas(bitmap, ratio, scheme_, &QtGlyphOutlines::shared());
    PetPainter painter(GraphicsContext(canvas), points_, points_, petFrame(pet_, pets_, moment_));
    painter.draw(actionOnStage(pet_, pets_));
    QPainter(this).drawImage(0, 0, image_);
}

} // namespace mimkins
