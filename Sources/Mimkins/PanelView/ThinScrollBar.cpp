#include "PanelView/ThinScrollBar.h"

#include "Drawing/Qt/Conversions.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr int barWidth = 6;
constexpr int margin = 2;
constexpr int leastHandle = 24;
/// Qt spreads higher fills over threads, whose waking costs many times what the fill does.
constexpr int highestFill = 64;

} // namespace

ThinScrollBar::ThinScrollBar() : QScrollBar(Qt::Vertical) {
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_OpaquePaintEvent, false); // the drawer shows beside the handle
}

void ThinScrollBar::setTheme(const PetTheme& theme) {
    ink_ = qt::color(theme.text.faded(0.22));
    update();
}

QSize ThinScrollBar::sizeHint() const {
    return {barWidth, 2 * leastHandle};
}

QRect ThinScrollBar::handle() const {
    const int track = std::max(height() - 2 * margin, 0);
    const int range = maximum() - minimum();
    const double share = static_cast<double>(pageStep()) / std::max(range + pageStep(), 1);
    const int length =
        std::clamp(static_cast<int>(std::lround(track * share)), std::min(leastHandle, track), track);
    const double way = range > 0 ? static_cast<double>(value() - minimum()) / range : 0;
    return {0, margin + static_cast<int>(std::lround(way * (track - length))), width(), length};
}

void ThinScrollBar::paintEvent(QPaintEvent*) {
    const QRect all = handle();
    const int end = std::min(all.width(), all.height());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink_);
    constexpr int halfTurn = 180 * 16;
    painter.drawChord(QRectF(all.left(), all.top(), all.width(), end), 0, halfTurn);
    painter.drawChord(QRectF(all.left(), all.bottom() + 1 - end, all.width(), end), halfTurn, halfTurn);
    const QRect middle = all.adjusted(0, end / 2, 0, -(end / 2));
    for (int top = middle.top(); top <= middle.bottom(); top += highestFill) {
        painter.fillRect(middle.intersected(QRect(0, top, width(), highestFill)), ink_);
    }
}

void ThinScrollBar::mousePressEvent(QMouseEvent* event) {
    const QRect held = handle();
    const int y = event->position().toPoint().y();
    if (event->button() != Qt::LeftButton) {
        return;
    }
    if (y >= held.top() && y <= held.bottom()) {
        grip_ = y - held.top();
    } else {
        triggerAction(y < held.top() ? SliderPageStepSub : SliderPageStepAdd);
    }
}

void ThinScrollBar::mouseMoveEvent(QMouseEvent* event) {
    const int way = height() - 2 * margin - handle().height();
    if (grip_ && way > 0) {
        const int top = event->position().toPoint().y() - *grip_ - margin;
        const double share = static_cast<double>(top) / way;
        setValue(minimum() + static_cast<int>(std::lround(share * (maximum() - minimum()))));
    }
}

void ThinScrollBar::mouseReleaseEvent(QMouseEvent*) {
    grip_.reset();
}

} // namespace mimkins
