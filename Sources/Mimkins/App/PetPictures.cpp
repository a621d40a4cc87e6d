#include "App/PetPictures.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/QtGlyphOutlines.h"
#include "Drawing/RasterCanvas.h"
#include "Drawing/RecordingCanvas.h"
#include "Pet/PetPainter.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

void drawPet(Canvas& canvas, const PetPicture& picture) {
    const PetFrame frame = petFrame(picture.pet, picture.look, picture.date);
    PetPainter painter(GraphicsContext(canvas), picture.pixels, picture.pixels, frame);
    if (picture.routine) {
        painter.perform(*picture.routine);
    } else {
        painter.draw(actionOnStage(picture.pet, picture.look));
    }
}

QImage emptyImage(double width, double height) {
    QImage image(
        static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height)),
        QImage::Format_ARGB32_Premultiplied
    );
    image.fill(Qt::transparent);
    return image;
}

QBrush ground(const PetTheme& theme, const QRectF& rect) {
    if (theme.sky.empty()) {
        return QColor::fromRgbF(0.93F, 0.93F, 0.94F);
    }
    QLinearGradient sky(rect.topLeft(), rect.bottomLeft());
    for (std::size_t index = 0; index < theme.sky.size(); ++index) {
        const double place =
            static_cast<double>(index) / static_cast<double>(std::max<std::size_t>(theme.sky.size() - 1, 1));
        sky.setColorAt(place, qt::color(theme.sky[index]));
    }
    return sky;
}

} // namespace

QImage petImage(const PetPicture& picture) {
    QImage image = emptyImage(picture.pixels, picture.pixels);
    const Bitmap bitmap{
        reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
        static_cast<int>(image.bytesPerLine() / 4)};
    const ColorScheme scheme = picture.theme->schemeUnder(ColorScheme::light);
    RasterCanvas canvas(bitmap, 1, scheme, &QtGlyphOutlines::shared());
    drawPet(canvas, picture);
    return image;
}

std::string petCommands(const PetPicture& picture) {
    RecordingCanvas canvas;
    drawPet(canvas, picture);
    return canvas.toJson();
}

QImage sheetImage(const std::vector<SheetCell>& cells, int columns, bool labelled) {
    if (cells.empty()) {
        return {};
    }
    const double side = cells.front().picture.pixels;
    const double gap = std::max(8.0, side / 8);
    const double labelHeight = labelled ? 16 : 0;
    const double cellWidth = std::max(side + gap, labelled ? 96.0 : 0.0);
    const double cellHeight = side + gap + labelHeight;
    const auto count = static_cast<int>(cells.size());
    const int rows = (count + columns - 1) / columns;
    QImage image = emptyImage(cellWidth * std::min(columns, count), cellHeight * rows);
    QPainter painter(&image);
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    for (int index = 0; index < count; ++index) {
        const SheetCell& cell = cells[static_cast<std::size_t>(index)];
        const QRectF box(
            cellWidth * (index % columns), cellHeight * (index / columns), cellWidth, cellHeight
        );
        painter.fillRect(box, ground(*cell.picture.theme, box));
        painter.drawImage(
            QPointF(std::floor(box.x() + (cellWidth - side) / 2), std::floor(box.y() + gap / 2)),
            petImage(cell.picture)
        );
        painter.setPen(qt::color(
            cell.picture.theme->text.resolved(cell.picture.theme->scheme.value_or(ColorScheme::light))
        ));
        if (labelled) {
            const QString words =
                QFontMetricsF(font).elidedText(qt::text(cell.label), Qt::ElideRight, cellWidth - 4);
            painter.drawText(
                QRectF(box.x(), box.bottom() - labelHeight - 2, cellWidth, labelHeight), Qt::AlignCenter,
                words
            );
        }
    }
    return image;
}

} // namespace mimkins
