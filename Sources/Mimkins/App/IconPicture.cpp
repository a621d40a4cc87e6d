#include "App/IconPicture.h"

#include "App/PetPictures.h"
#include "AppIcon/AppIconDrawing.h"
#include "Drawing/RasterCanvas.h"

#include <QPixmap>

namespace mimkins {

QImage iconImage(int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    RasterCanvas canvas(bitmapOf(image), 1, ColorScheme::dark, nullptr);
    GraphicsContext context(canvas);
    app_icon::drawIcon(context, side);
    return image;
}

QIcon applicationIcon() {
    constexpr int largest = 128;
    QIcon icon;
    for (const int side : app_icon::sides) {
        if (side <= largest) {
            icon.addPixmap(QPixmap::fromImage(iconImage(side)));
        }
    }
    return icon;
}

int renderIcon(int side, const std::string& file) {
    return saveImage(iconImage(side), file);
}

} // namespace mimkins
