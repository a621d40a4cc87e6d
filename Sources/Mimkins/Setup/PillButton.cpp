#include "Setup/PillButton.h"

#include "Drawing/Contrast.h"
#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "PanelView/ReturnKey.h"
#include "Presentation/Accent.h"
#include "Setup/SetupKit.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double symbolGap = 5;
constexpr int mostLines = 3;
constexpr double ringWidth = 1.5;

} // namespace

PillButton::PillButton(Kind kind, double plainPoints) : kind_(kind), plainPoints_(plainPoints) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

PillButton::Style PillButton::style(const CardLook& look) const {
    const PetTheme& theme = *look.theme;
    const Color leading = accent(theme);
    Style style;
    switch (kind_) {
    case Kind::primary:
        style.font = look.typography.font(13, QFont::Bold);
        style.ink = inkOn(leading, 0.85);
        style.fill = leading;
        style.stroke = Color::clear();
        style.paddingX = 16;
        style.paddingY = 8;
        style.lift = Color::white(0.16);
        break;
    case Kind::small:
        style.font = look.typography.font(11, QFont::DemiBold);
        style.ink = theme.text;
        style.fill = leading.faded(0.18);
        style.stroke = leading.faded(0.4);
        style.paddingX = 9;
        style.paddingY = 4;
        style.lift = leading.faded(0.14);
        break;
    case Kind::plain:
    case Kind::flush:
        style.font = look.typography.systemFont(plainPoints_);
        style.ink = theme.subtext;
        style.fill = Color::clear();
        style.stroke = Color::clear();
        style.paddingX = kind_ == Kind::plain ? 8 : 0;
        style.paddingY = 5;
        style.lift = kind_ == Kind::plain ? theme.text.faded(0.08) : Color::clear();
        break;
    }
    return style;
}

void PillButton::setLook(const CardLook& look) {
    style_ = style(look);
    ring_ = look.theme->text.faded(0.85);
    scheme_ = look.scheme();
    setFont(style_.font);
    updateGeometry();
    update();
}

void PillButton::setWords(const QString& words) {
    setText(words);
    updateGeometry();
    update();
}

void PillButton::setSymbol(std::optional<Symbol> symbol) {
    symbol_ = symbol;
    updateGeometry();
    update();
}

double PillButton::symbolRoom() const {
    return symbol_ ? QFontMetricsF(style_.font).ascent() + symbolGap : 0;
}

/// The words in lines of at most this width.
QStringList PillButton::linesWithin(double width) const {
    return fittedLines(text(), style_.font, std::max(width, 1.0), mostLines);
}

QSize PillButton::sizeWithin(int width) const {
    const QFontMetricsF metrics(style_.font);
    const double around = 2 * style_.paddingX + 2 * ringRoom + symbolRoom();
    const double oneLine = std::ceil(metrics.horizontalAdvance(text())) + 1;
    const double room = std::min(oneLine, width - around);
    const auto lines = std::max<qsizetype>(linesWithin(room).size(), 1);
    const double height = metrics.height() * static_cast<double>(lines) + 2 * style_.paddingY + 2 * ringRoom;
    return {static_cast<int>(std::ceil(room + around)), static_cast<int>(std::ceil(height))};
}

QSize PillButton::sizeHint() const {
    return sizeWithin(QWIDGETSIZE_MAX);
}

QSize PillButton::minimumSizeHint() const {
    return sizeHint();
}

void PillButton::keyPressEvent(QKeyEvent* event) {
    if (!pressByReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

void PillButton::drawWords(QPainter& painter, const QRectF& capsule) const {
    const QFontMetricsF metrics(style_.font);
    const double symbol = symbolRoom();
    const double room = capsule.width() - 2 * style_.paddingX - symbol;
    const QStringList lines = linesWithin(room);
    const double height = metrics.height() * static_cast<double>(lines.size());
    double top = capsule.center().y() - height / 2;
    const double left = capsule.left() + style_.paddingX;
    const bool bare = kind_ == Kind::plain || kind_ == Kind::flush;
    const Color ink = bare && underMouse() ? ring_ : style_.ink;
    if (symbol_) {
        const double side = metrics.ascent();
        PainterCanvas canvas(painter, scheme_);
        GraphicsContext context(canvas);
        context.translateBy(left, capsule.center().y() - side / 2);
        drawSymbol(context, *symbol_, side, ink);
    }
    painter.setFont(style_.font);
    painter.setPen(qt::color(ink));
    for (const auto& line : lines) {
        painter.drawText(
            QRectF(left + symbol, top, room, metrics.height()), Qt::AlignCenter | Qt::TextSingleLine, line
        );
        top += metrics.height();
    }
}

void PillButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr double room = ringRoom;
    const QRectF capsule = QRectF(rect()).adjusted(room, room, -room, -room);
    // A button of several lines is round at its corners only.
    const double oneLine = QFontMetricsF(style_.font).height() + 2 * style_.paddingY;
    const double radius = std::min(capsule.height(), oneLine) / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(qt::color(style_.fill));
    painter.drawRoundedRect(capsule, radius, radius);
    for (int times = (underMouse() ? 1 : 0) + (isDown() ? 1 : 0); times > 0; --times) {
        painter.setBrush(qt::color(style_.lift));
        painter.drawRoundedRect(capsule, radius, radius);
    }
    painter.setBrush(Qt::NoBrush);
    if (style_.stroke.opacity > 0) {
        painter.setPen(QPen(qt::color(style_.stroke), 1));
        painter.drawRoundedRect(capsule.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    }
    drawWords(painter, capsule);
    if (hasFocus()) {
        const double out = room - ringWidth / 2;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(qt::color(ring_), ringWidth));
        painter.drawRoundedRect(capsule.adjusted(-out, -out, out, out), radius + out, radius + out);
    }
}

} // namespace mimkins
