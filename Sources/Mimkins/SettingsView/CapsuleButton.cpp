#include "SettingsView/CapsuleButton.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "PanelView/ReturnKey.h"
#include "Presentation/Accent.h"
#include "SettingsView/ControlDrawing.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

namespace mimkins {

namespace {

constexpr double symbolPoints = 12;
constexpr double titlePoints = 10;
constexpr double spacing = 6;
constexpr double paddingX = 11;
constexpr double paddingY = 7;

} // namespace

CapsuleButton::CapsuleButton(Symbol symbol, std::string_view title)
    : QPushButton(qt::text(title)), symbol_(symbol), look_(controls::plainLook()) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CapsuleButton::setLook(const CardLook& look) {
    look_ = look;
    updateGeometry();
    update();
}

QFont CapsuleButton::titleFont() const {
    return look_.typography.systemFont(titlePoints, QFont::DemiBold);
}

QSize CapsuleButton::sizeHint() const {
    const int height = std::max(QFontMetrics(titleFont()).height(), controls::scaled(look_, symbolPoints));
    return {
        controls::widthOf(text(), titleFont()) + controls::scaled(look_, symbolPoints + spacing) +
            static_cast<int>(2 * paddingX),
        height + static_cast<int>(2 * paddingY)};
}

QSize CapsuleButton::minimumSizeHint() const {
    return sizeHint();
}

void CapsuleButton::keyPressEvent(QKeyEvent* event) {
    if (!pressByReturn(*this, *event)) {
        QPushButton::keyPressEvent(event);
    }
}

void CapsuleButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(rect());
    const double radius = area.height() / 2;
    controls::fillRounded(painter, area, radius, controls::ground(look_, {underMouse(), isDown()}));
    if (hasFocus()) {
        controls::drawFocusRing(painter, area, radius, look_);
    } else {
        controls::strokeRounded(painter, area, radius, QPen(controls::primary(look_, 0.16), 1));
    }
    const double side = controls::scaled(look_, symbolPoints);
    const double gap = controls::scaled(look_, spacing);
    const double words = controls::widthOf(text(), titleFont());
    const double left = (area.width() - side - gap - words) / 2;
    {
        PainterCanvas canvas(painter, look_.scheme());
        GraphicsContext context(canvas);
        context.translateBy(left, (area.height() - side) / 2);
        drawSymbol(context, symbol_, side, controlAccent(*look_.theme));
    }
    painter.setFont(titleFont());
    painter.setPen(qt::color(look_.theme->text));
    painter.drawText(
        QRectF(left + side + gap, 0, words + 1, area.height()),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text()
    );
}

} // namespace mimkins
