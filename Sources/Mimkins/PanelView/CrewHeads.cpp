#include "PanelView/CrewHeads.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/RasterCanvas.h"

#include <QFontMetricsF>

#include <cmath>

namespace mimkins {

namespace {

constexpr double above = 7; ///< room over a head, for its halo and to bob
constexpr double below = 2; ///< room to bob
constexpr double beside = 1;
constexpr double textLead = 5;

QImage picture(const MiniHead& head, const PetLook& look, ColorScheme scheme, double ratio) {
    const int width = static_cast<int>(std::ceil((MiniHead::width + 2 * beside) * ratio));
    const int height = static_cast<int>(std::ceil((MiniHead::height + above) * ratio));
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    const Bitmap bitmap{
        reinterpret_cast<std::uint32_t*>(image.bits()), width, height,
        static_cast<int>(image.bytesPerLine() / 4)};
    RasterCanvas canvas(bitmap, ratio, scheme, nullptr);
    GraphicsContext context(canvas);
    context.translateBy(beside, above - 1);
    head.draw(context, look);
    return image;
}

} // namespace

void CrewHeads::setCrew(const CrewRow& crew, const CardLook& look) {
    crew_ = crew;
    look_ = look.pets;
    scheme_ = look.scheme();
    font_ = Typography(FontDesign::rounded, look.typography.scale()).font(9, QFont::ExtraBold);
    ink_ = look.theme->subtext;
    heads_.clear();
}

QSizeF CrewHeads::size() const {
    const auto count = static_cast<double>(crew_.heads.size());
    double width = count * (MiniHead::width - CrewRow::overlap) + CrewRow::overlap;
    if (crew_.more) {
        width += textLead + std::ceil(QFontMetricsF(font_).horizontalAdvance(qt::text(*crew_.more)));
    }
    return {width, above + MiniHead::height + below};
}

void CrewHeads::prepare(double ratio) {
    if (!heads_.empty() && heads_.front().devicePixelRatio() == ratio) {
        return;
    }
    heads_.clear();
    for (const auto& head : crew_.heads) {
        heads_.push_back(picture(head, look_, scheme_, ratio));
    }
}

void CrewHeads::draw(QPainter& painter, QPointF topLeft, Date at) {
    prepare(painter.device()->devicePixelRatio());
    double x = topLeft.x();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (std::size_t index = 0; index < heads_.size(); ++index) {
        painter.drawImage(QPointF(x - beside, topLeft.y() + 1 + crewBob(index, at)), heads_[index]);
        x += MiniHead::width - CrewRow::overlap;
    }
    if (crew_.more) {
        const double left = x + CrewRow::overlap + textLead;
        painter.setFont(font_);
        painter.setPen(qt::color(ink_));
        painter.drawText(
            QRectF(left, topLeft.y() + above, topLeft.x() + size().width() - left, MiniHead::height),
            Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, qt::text(*crew_.more)
        );
    }
}

} // namespace mimkins
