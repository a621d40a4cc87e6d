#include "PanelView/AllClearView.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Symbols.h"
#include "PanelView/AccessibleRole.h"
#include "PanelView/SweepDrawing.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr double allClearSpacing = 6;
constexpr double allClearPadding = 10;
constexpr int allClearLines = 3;
constexpr double buttonPoints = 11;
constexpr double buttonPaddingX = 8;
constexpr double buttonPaddingY = 4;
constexpr double symbolSpacing = 5;
constexpr auto oneLine = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;

} // namespace

AllClearView::AllClearView(const SweepWords::AllClear& words, const CardLook& look, Date now)
    : words_(words), look_(look) {
    setAccessibleRole(*this, QAccessible::StaticText);
    Pet pet;
    pet.action = PetAction::resting;
    pet.seed = SweepWords::allClearSeed;
    pet.since = now;
    pet_ = new PetBox(pet, petSide, look);
    pet_->setParent(this);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setWords(words);
}

void AllClearView::setWords(const SweepWords::AllClear& words) {
    words_ = words;
    setAccessibleName(qt::text(words_.title));
    setAccessibleDescription(qt::text(words_.detail));
    updateGeometry();
    update();
}

void AllClearView::animate(Date now) {
    pet_->animate(now);
}

QFont AllClearView::titleFont() const {
    return look_.typography.font(14, QFont::Bold);
}

QFont AllClearView::detailFont() const {
    return look_.typography.systemFont(11);
}

int AllClearView::heightForWidth(int width) const {
    const double words =
        sweep::heightOf(sweep::lines(words_.title, titleFont(), width, allClearLines), titleFont()) +
        sweep::heightOf(sweep::lines(words_.detail, detailFont(), width, allClearLines), detailFont());
    return static_cast<int>(std::ceil(2 * allClearPadding + petSide + 2 * allClearSpacing + words));
}

QSize AllClearView::sizeHint() const {
    return {200, heightForWidth(std::max(width(), 200))};
}

void AllClearView::resizeEvent(QResizeEvent*) {
    pet_->move((width() - pet_->width()) / 2, static_cast<int>(allClearPadding));
}

void AllClearView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QRectF area(0, allClearPadding + petSide + allClearSpacing, width(), height());
    painter.setFont(titleFont());
    painter.setPen(qt::color(look_.theme->text));
    const auto title = sweep::lines(words_.title, titleFont(), width(), allClearLines);
    area.setTop(sweep::drawLines(painter, title, area, Qt::AlignHCenter) + allClearSpacing);
    painter.setFont(detailFont());
    painter.setPen(qt::color(look_.theme->subtext));
    sweep::drawLines(
        painter, sweep::lines(words_.detail, detailFont(), width(), allClearLines), area, Qt::AlignHCenter
    );
}

CheckButton::CheckButton(const CardLook& look) : look_(look) {
    setFont(look_.typography.systemFont(buttonPoints, QFont::DemiBold));
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CheckButton::sizeHint() const {
    const QFontMetricsF metrics(font());
    const double symbol = metrics.ascent() + symbolSpacing;
    return {
        static_cast<int>(std::ceil(metrics.horizontalAdvance(text()) + symbol + 2 * buttonPaddingX)),
        static_cast<int>(std::ceil(metrics.height() + 2 * buttonPaddingY))};
}

void CheckButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const PetTheme& theme = *look_.theme;
    const Color ink = isEnabled() ? theme.text : theme.subtext;
    const double lift = !isEnabled() ? 0.04 : isDown() ? 0.2 : underMouse() ? 0.14 : 0.08;
    painter.setPen(Qt::NoPen);
    painter.setBrush(qt::color(theme.text.faded(lift)));
    painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
    const double side = QFontMetricsF(font()).ascent();
    {
        PainterCanvas canvas(painter, look_.scheme());
        GraphicsContext context(canvas);
        context.translateBy(buttonPaddingX, (height() - side) / 2);
        drawSymbol(context, Symbol::refresh, side, ink);
    }
    painter.setFont(font());
    painter.setPen(qt::color(ink));
    painter.drawText(
        QRectF(rect()).adjusted(buttonPaddingX + side + symbolSpacing, 0, 0, 0), oneLine, text()
    );
    sweep::drawFocus(painter, *this, theme.text, height() / 2.0);
}

} // namespace mimkins
