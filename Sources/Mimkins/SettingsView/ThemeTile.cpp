#include "SettingsView/ThemeTile.h"

#include "Base/StableSeed.h"
#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Qt/Scheme.h"
#include "PanelView/ReturnKey.h"
#include "Pet/MiniHead.h"
#include "SettingsView/ControlDrawing.h"
#include "Theme/ThemeDrawing.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double namePoints = 12;
constexpr double padding = 8;
constexpr double spacing = 7;
constexpr double radius = 10;
constexpr double chosenBorder = 2;
constexpr double focusInset = 3.5;
constexpr std::uint64_t goldenRatio = 0x9e3779b97f4a7c15;

} // namespace

ThemeTile::ThemeTile(const PetTheme& theme) : theme_(theme.resolved(systemScheme())) {
    setText(qt::text(theme_.name));
    setAccessibleDescription(qt::text(theme_.blurb));
    setToolTip(qt::text(theme_.blurb));
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ThemeTile::setLook(const CardLook& look) {
    theme_ = PetTheme::named(theme_.id).resolved(systemScheme());
    scale_ = look.typography.scale();
    pets_ = look.pets;
    pets_.hue = theme_.petHue;
    pets_.saturation = theme_.petSaturation;
    pets_.brightness = theme_.petBrightness;
    pets_.outline = theme_.petOutline;
    ground_ = {};
    updateGeometry();
    update();
}

QFont ThemeTile::nameFont() const {
    return Typography(theme_.font, scale_).font(namePoints, QFont::Bold);
}

double ThemeTile::headScale() const {
    return 1 + (scale_ - 1) / 2;
}

QSize ThemeTile::sizeHint() const {
    const QFontMetrics metrics(nameFont());
    const double head = headScale() * MiniHead::width;
    const double height = std::max<double>(metrics.height(), headScale() * MiniHead::height);
    return {
        static_cast<int>(std::ceil(controls::widthOf(text(), nameFont()) + head + spacing + 2 * padding)),
        static_cast<int>(std::ceil(height + 2 * padding))};
}

QSize ThemeTile::minimumSizeHint() const {
    return sizeHint();
}

void ThemeTile::keyPressEvent(QKeyEvent* event) {
    if (!pressByReturn(*this, *event)) {
        QRadioButton::keyPressEvent(event);
    }
}

/// The theme's background, cut to the tile's shape.
QPixmap ThemeTile::ground() const {
    const double ratio = devicePixelRatioF();
    const auto blank = [&] {
        QPixmap picture(size() * ratio);
        picture.setDevicePixelRatio(ratio);
        picture.fill(Qt::transparent);
        return picture;
    };
    QPixmap sky = blank();
    {
        QPainter painter(&sky);
        PainterCanvas canvas(painter, theme_.schemeUnder(systemScheme()));
        GraphicsContext context(canvas);
        const Size area{static_cast<double>(width()), static_cast<double>(height())};
        drawSky(context, theme_, theme_.schemeUnder(systemScheme()), area);
        drawTexture(context, theme_.texture, area);
    }
    QPixmap shape = blank();
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    controls::fillRounded(painter, rect(), radius, Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.drawPixmap(0, 0, sky);
    return shape;
}

void ThemeTile::drawHead(QPainter& painter) const {
    PainterCanvas canvas(painter, theme_.schemeUnder(systemScheme()));
    GraphicsContext context(canvas);
    context.translateBy(padding, (height() - headScale() * MiniHead::height) / 2);
    context.scaleBy(headScale(), headScale());
    MiniHead{stableSeed(theme_.id) ^ (pets_.shuffle * goldenRatio), 0}.draw(context, pets_);
}

void ThemeTile::drawBorder(QPainter& painter) const {
    const QRectF area(rect());
    if (isChecked()) {
        const Color color = theme_.title.empty() ? theme_.working : theme_.title.front();
        controls::strokeRounded(painter, area, radius, QPen(qt::color(color), chosenBorder));
    } else {
        const Color primary = Color::named(NamedColor::primary, underMouse() ? 0.4 : 0.12);
        const ColorScheme scheme = theme_.schemeUnder(systemScheme());
        controls::strokeRounded(painter, area, radius, QPen(qt::color(primary.resolved(scheme)), 1));
    }
    if (hasFocus()) {
        const QRectF inside = area.adjusted(focusInset, focusInset, -focusInset, -focusInset);
        controls::strokeRounded(
            painter, inside, radius - focusInset, QPen(qt::color(theme_.text.faded(0.85)), 1.5)
        );
    }
}

void ThemeTile::paintEvent(QPaintEvent*) {
    if (ground_.size() != size() * devicePixelRatioF()) {
        ground_ = ground();
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPixmap(0, 0, ground_);
    drawHead(painter);
    const double left = padding + headScale() * MiniHead::width + spacing;
    painter.setFont(nameFont());
    painter.setPen(qt::color(theme_.text));
    painter.drawText(
        QRectF(left, 0, width() - left - padding + 2, height()),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text()
    );
    drawBorder(painter);
}

} // namespace mimkins
