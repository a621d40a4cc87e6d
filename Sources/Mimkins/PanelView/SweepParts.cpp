#include "PanelView/SweepParts.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Symbols.h"
#include "PanelView/AccessibleRole.h"
#include "PanelView/ReturnKey.h"
#include "PanelView/SweepDrawing.h"
#include "Pet/MiniHead.h"
#include "Presentation/MoodTint.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double headPoints = 10;
constexpr double headSpacing = 5;
constexpr double headKerning = 0.8;
constexpr double rowPaddingX = 10;
constexpr double rowPaddingY = 7;
constexpr double rowSpacing = 9;
constexpr double rowTitlePoints = 12;
constexpr double rowDetailPoints = 10;
constexpr double arrowSide = 11;
constexpr int mostLines = 2;
constexpr double hoverTint = 0.06;
constexpr auto oneLine = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;

Symbol symbolOf(SweepWords::Kind kind) {
    switch (kind) {
    case SweepWords::Kind::waiting:
        return Symbol::wave;
    case SweepWords::Kind::uncommitted:
        return Symbol::box;
    case SweepWords::Kind::scheduled:
        return Symbol::alarm;
    case SweepWords::Kind::running:
        break;
    }
    return Symbol::gears;
}

QFont headFont(const CardLook& look) {
    QFont font = look.typography.systemFont(headPoints, QFont::ExtraBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, headKerning);
    return font;
}

} // namespace

SweepHead::SweepHead(SweepWords::Kind kind, const CardLook& look) : kind_(kind), look_(look) {
    setAccessibleRole(*this, QAccessible::Heading);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SweepHead::setCount(std::size_t count) {
    count_ = count;
    setAccessibleName(words());
    update();
}

QString SweepHead::words() const {
    return qt::text(title(kind_)) + " " + QString::number(count_);
}

QSize SweepHead::sizeHint() const {
    return {60, static_cast<int>(std::ceil(QFontMetricsF(headFont(look_)).height()))};
}

void SweepHead::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFont font = headFont(look_);
    const double side = headPoints * look_.typography.scale();
    const QString words = qt::text(title(kind_));
    const double left = side + headSpacing;
    const double width = QFontMetricsF(font).horizontalAdvance(words);
    QLinearGradient across(left, 0, left + width, 0);
    const auto& colors = look_.theme->title;
    const double last = static_cast<double>(std::max<std::size_t>(colors.size(), 2) - 1);
    for (std::size_t index = 0; index < colors.size(); ++index) {
        across.setColorAt(static_cast<double>(index) / last, qt::color(colors[index]));
    }
    const Color first = colors.empty() ? look_.theme->text : colors.front();
    {
        PainterCanvas canvas(painter, look_.scheme());
        GraphicsContext context(canvas);
        context.translateBy(0, (height() - side) / 2);
        drawSymbol(context, symbolOf(kind_), side, first);
    }
    painter.setFont(font);
    painter.setPen(colors.empty() ? QPen(qt::color(first)) : QPen(QBrush(across), 1));
    painter.drawText(QRectF(left, 0, width + 1, height()), oneLine, words);
    painter.setPen(qt::color(look_.theme->subtext));
    painter.drawText(
        QRectF(left + width + headSpacing, 0, this->width() - left - width, height()), oneLine,
        QString::number(count_)
    );
}

SweepRow::SweepRow(SweepWords::Kind kind, const CardLook& look) : kind_(kind), look_(look) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(SweepWords::rowHelp);
    setCursor(Qt::PointingHandCursor);
}

void SweepRow::setRow(const SweepWords::Row& row) {
    if (row_ == row) {
        return;
    }
    row_ = row;
    setAccessibleName(qt::text(row_.title));
    setAccessibleDescription(qt::text(row_.detail));
    updateGeometry();
    update();
}

QFont SweepRow::titleFont() const {
    return look_.typography.systemFont(rowTitlePoints, QFont::DemiBold);
}

QFont SweepRow::detailFont() const {
    return look_.typography.systemFont(rowDetailPoints);
}

double SweepRow::textWidth(double width) const {
    const double taken = 2 * rowPaddingX + MiniHead::width + 2 * rowSpacing + arrowSide;
    return std::max(width - taken, 40.0);
}

double SweepRow::linesHeight(double width) const {
    const double room = textWidth(width);
    return sweep::heightOf(sweep::lines(row_.title, titleFont(), room, mostLines), titleFont()) +
           sweep::heightOf(sweep::lines(row_.detail, detailFont(), room, mostLines), detailFont());
}

int SweepRow::heightForWidth(int width) const {
    return static_cast<int>(std::ceil(linesHeight(width) + 2 * rowPaddingY));
}

QSize SweepRow::sizeHint() const {
    return {200, heightForWidth(std::max(width(), 200))};
}

QSize SweepRow::minimumSizeHint() const {
    return {80, heightForWidth(std::max(width(), 80))};
}

const Color& SweepRow::color() const {
    if (row_.mood) {
        return tint(*look_.theme, *row_.mood);
    }
    return kind_ == SweepWords::Kind::uncommitted ? look_.theme->waiting : look_.theme->working;
}

void SweepRow::keyPressEvent(QKeyEvent* event) {
    if (!pressByReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

void SweepRow::drawGround(QPainter& painter) const {
    constexpr double leastRadius = 4;
    constexpr double primaryOpacity = 0.05;
    const PetTheme& theme = *look_.theme;
    const double radius = std::max(theme.radius - 4, leastRadius);
    const Color primary = Color::named(NamedColor::primary, primaryOpacity).resolved(look_.scheme());
    PainterCanvas canvas(painter, look_.scheme());
    GraphicsContext context(canvas);
    const Rect area{0, 0, static_cast<double>(width()), static_cast<double>(height())};
    const Path shape = Path::roundedRect(area, radius, CornerStyle::continuous);
    context.fill(shape, theme.cardBase.opacity == 0 ? primary : theme.cardBase);
    if (underMouse() || isDown()) {
        context.fill(shape, theme.text.faded(isDown() ? 2 * hoverTint : hoverTint));
    }
    context.fill(Path::roundedRect({3, 8, 3, area.height - 16}, 1.5), color());
}

void SweepRow::drawWords(QPainter& painter) const {
    const PetTheme& theme = *look_.theme;
    const double left = rowPaddingX + MiniHead::width + rowSpacing;
    const double room = textWidth(width());
    QRectF area(left, (height() - linesHeight(width())) / 2, room, height());
    painter.setFont(titleFont());
    painter.setPen(qt::color(theme.text));
    area.setTop(
        sweep::drawLines(painter, sweep::lines(row_.title, titleFont(), room, mostLines), area, Qt::AlignLeft)
    );
    painter.setFont(detailFont());
    painter.setPen(qt::color(theme.subtext));
    sweep::drawLines(painter, sweep::lines(row_.detail, detailFont(), room, mostLines), area, Qt::AlignLeft);
}

void SweepRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawGround(painter);
    {
        PainterCanvas canvas(painter, look_.scheme());
        GraphicsContext head(canvas);
        head.translateBy(rowPaddingX, (height() - MiniHead::height) / 2);
        MiniHead{row_.seed, 0}.draw(head, look_.pets);
        GraphicsContext arrow(canvas);
        arrow.translateBy(width() - rowPaddingX - arrowSide, (height() - arrowSide) / 2);
        drawSymbol(arrow, Symbol::openApp, arrowSide, look_.theme->subtext);
    }
    drawWords(painter);
    sweep::drawFocus(painter, *this, look_.theme->text, std::max(look_.theme->radius - 4, 4.0));
}

} // namespace mimkins
