#include "HUD/HUDView.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "PanelView/AccessibleRole.h"
#include "Pet/MiniHead.h"
#include "Presentation/SessionPet.h"
#include "Theme/ThemeDrawing.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double paddingX = 14;
constexpr double paddingY = 9;
constexpr double spacing = 10;
constexpr double lineSpacing = 1;
constexpr double headWidth = 22;
constexpr double headHeight = 20;
constexpr double headScale = 1.6;
constexpr double titlePoints = 13;
constexpr double subtitlePoints = 11;
constexpr double radius = 16;
constexpr double edgeWidth = 1.5;
constexpr int shadowSteps = 5;

/// The colours of the stroke round the notice, from its leading to its trailing edge.
std::vector<Color> edgeColors(const PetTheme& theme) {
    if (theme.border.size() >= 2) {
        return theme.border;
    }
    const Color& only = theme.title.empty() ? theme.working : theme.title.front();
    return {only, only};
}

QPainterPath rounded(const QRectF& rect, double corner) {
    QPainterPath path;
    path.addRoundedRect(rect, corner, corner);
    return path;
}

} // namespace

HUDView::HUDView() : theme_(PetTheme::nightSky()), typography_(theme_.font) {
    setAccessibleRole(*this, QAccessible::AlertMessage);
}

void HUDView::setContent(const Notice& notice, const PetTheme& theme) {
    notice_ = notice;
    theme_ = theme;
    typography_ = Typography(theme_.font);
    setAccessibleName(qt::text(notice_.title));
    setAccessibleDescription(qt::text(notice_.subtitle));
    updateGeometry();
    update();
}

QFont HUDView::titleFont() const {
    return typography_.font(titlePoints, QFont::Bold);
}

QFont HUDView::subtitleFont() const {
    return typography_.font(subtitlePoints);
}

double HUDView::mostTextWidth() const {
    return mostWidth * typography_.scale() - 2 * paddingX - headWidth - spacing;
}

QString HUDView::titleLine() const {
    return QFontMetricsF(titleFont()).elidedText(qt::text(notice_.title), Qt::ElideRight, mostTextWidth());
}

QString HUDView::subtitleLine() const {
    return QFontMetricsF(subtitleFont())
        .elidedText(qt::text(notice_.subtitle), Qt::ElideRight, mostTextWidth());
}

QSize HUDView::sizeHint() const {
    const QFontMetricsF title(titleFont());
    const QFontMetricsF subtitle(subtitleFont());
    const double words =
        std::max(title.horizontalAdvance(titleLine()), subtitle.horizontalAdvance(subtitleLine()));
    const double row = 2 * paddingX + headWidth + spacing + std::min(words, mostTextWidth());
    const double lines = title.height() + lineSpacing + subtitle.height();
    const double height = 2 * paddingY + std::max(lines, headHeight);
    return {
        static_cast<int>(std::ceil(row + 2 * outerPadding)),
        static_cast<int>(std::ceil(height + 2 * outerPadding))};
}

QRectF HUDView::row() const {
    return QRectF(rect()).adjusted(outerPadding, outerPadding, -outerPadding, -outerPadding);
}

void HUDView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawShadow(painter);
    drawGround(painter);
    drawEdge(painter);
    drawHead(painter);
    drawWords(painter);
}

void HUDView::drawShadow(QPainter& painter) const {
    QPainterPath outside;
    outside.addRect(QRectF(rect()));
    painter.save();
    painter.setClipPath(outside.subtracted(rounded(row(), radius)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(qt::color(Color::black(0.3 / shadowSteps)));
    for (int step = 1; step <= shadowSteps; ++step) {
        const QRectF halo = row().adjusted(-step, -step, step, step).translated(0, 1);
        painter.drawRoundedRect(halo, radius + step, radius + step);
    }
    painter.restore();
}

void HUDView::drawGround(QPainter& painter) const {
    const double ratio = devicePixelRatioF();
    QImage picture((row().size() * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter inside(&picture);
    inside.setRenderHint(QPainter::Antialiasing);
    {
        PainterCanvas canvas(inside, theme_.scheme.value_or(ColorScheme::dark));
        GraphicsContext context(canvas);
        const Size size{row().width(), row().height()};
        drawSky(context, theme_, theme_.scheme.value_or(ColorScheme::dark), size);
        drawTexture(context, theme_.texture, size);
        drawParticles(context, theme_, 0, size);
    }
    // Cut to the shape last, so that its edge is smooth.
    const QRectF area(QPointF(0, 0), row().size());
    QPainterPath outside;
    outside.addRect(area);
    inside.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    inside.fillPath(outside.subtracted(rounded(area, radius)), Qt::black);
    inside.end();
    painter.drawImage(row().topLeft(), picture);
}

void HUDView::drawEdge(QPainter& painter) const {
    const QRectF line = row().adjusted(edgeWidth / 2, edgeWidth / 2, -edgeWidth / 2, -edgeWidth / 2);
    QLinearGradient across(row().topLeft(), row().topRight());
    const auto colors = edgeColors(theme_);
    const double last = static_cast<double>(colors.size() - 1);
    for (std::size_t index = 0; index < colors.size(); ++index) {
        across.setColorAt(static_cast<double>(index) / last, qt::color(colors[index]));
    }
    painter.strokePath(rounded(line, radius - edgeWidth / 2), QPen(QBrush(across), edgeWidth));
}

void HUDView::drawHead(QPainter& painter) const {
    PainterCanvas canvas(painter, theme_.scheme.value_or(ColorScheme::dark));
    GraphicsContext context(canvas);
    context.translateBy(row().left() + paddingX + headWidth / 2, row().center().y());
    context.scaleBy(headScale, headScale);
    context.translateBy(-MiniHead::width / 2, -MiniHead::height / 2);
    MiniHead{notice_.seed, 0}.draw(context, petLook(theme_, {}));
}

void HUDView::drawWords(QPainter& painter) const {
    const QFontMetricsF title(titleFont());
    const QFontMetricsF subtitle(subtitleFont());
    const double lines = title.height() + lineSpacing + subtitle.height();
    const double left = row().left() + paddingX + headWidth + spacing;
    const double width = row().right() - left;
    double top = row().center().y() - lines / 2;
    const auto flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;
    painter.setFont(titleFont());
    painter.setPen(qt::color(theme_.text));
    painter.drawText(QRectF(left, top, width, title.height()), flags, titleLine());
    top += title.height() + lineSpacing;
    painter.setFont(subtitleFont());
    painter.setPen(qt::color(theme_.subtext));
    painter.drawText(QRectF(left, top, width, subtitle.height()), flags, subtitleLine());
}

} // namespace mimkins
