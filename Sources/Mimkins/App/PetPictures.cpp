#include "App/PetPictures.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/QtGlyphOutlines.h"
#include "Drawing/RecordingCanvas.h"
#include "Pet/PetPainter.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iostream>

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

void drawLabel(QPainter& painter, const SheetCell& cell, const QRectF& line) {
    painter.setPen(qt::color(cell.theme->text.resolved(cell.theme->schemeUnder(ColorScheme::light))));
    const QString words =
        QFontMetricsF(painter.font()).elidedText(qt::text(cell.label), Qt::ElideRight, line.width());
    painter.drawText(line, Qt::AlignCenter, words);
}

} // namespace

Bitmap bitmapOf(QImage& image) {
    return {
        reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
        static_cast<int>(image.bytesPerLine() / 4)};
}

int saveImage(const QImage& image, const std::string& file) {
    if (!image.save(QString::fromStdString(file))) {
        std::cerr << "mimkins: can't write " << file << "\n";
        return 1;
    }
    return 0;
}

QImage petImage(const PetPicture& picture) {
    QImage image = emptyImage(picture.pixels, picture.pixels);
    const ColorScheme scheme = picture.theme->schemeUnder(ColorScheme::light);
    RasterCanvas canvas(bitmapOf(image), 1, scheme, &QtGlyphOutlines::shared());
    drawPet(canvas, picture);
    return image;
}

QImage petOnSky(const PetPicture& picture) {
    QImage image = emptyImage(picture.pixels, picture.pixels);
    QPainter painter(&image);
    painter.fillRect(image.rect(), ground(*picture.theme, QRectF(image.rect())));
    painter.drawImage(0, 0, petImage(picture));
    return image;
}

QImage headImage(const MiniHead& head, const PetLook& look, double pixels) {
    constexpr double haloRoom = 5;
    constexpr double across = MiniHead::height + haloRoom + 2;
    QImage image = emptyImage(pixels, pixels);
    RasterCanvas canvas(bitmapOf(image), pixels / across, ColorScheme::light, nullptr);
    GraphicsContext context(canvas);
    context.translateBy((across - MiniHead::width) / 2, haloRoom + 1);
    head.draw(context, look);
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
    const double side = cells.front().image.width();
    const double gap = std::max(8.0, side / 8);
    const double labelHeight = labelled ? 16 : 0;
    const QSizeF cell(std::max(side + gap, labelled ? 96.0 : 0.0), side + gap + labelHeight);
    const auto count = static_cast<int>(cells.size());
    const int rows = (count + columns - 1) / columns;
    QImage image = emptyImage(cell.width() * std::min(columns, count), cell.height() * rows);
    QPainter painter(&image);
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    for (int index = 0; index < count; ++index) {
        const SheetCell& shown = cells[static_cast<std::size_t>(index)];
        const int row = index / columns;
        const QPointF corner(cell.width() * (index % columns), cell.height() * row);
        const QRectF box(corner, cell);
        painter.fillRect(box, ground(*shown.theme, box));
        painter.drawImage(
            QPointF(std::floor(box.x() + (cell.width() - side) / 2), std::floor(box.y() + gap / 2)),
            shown.image
        );
        if (labelled) {
            drawLabel(painter, shown, box.adjusted(2, cell.height() - labelHeight - 2, -2, -2));
        }
    }
    return image;
}

} // namespace mimkins
