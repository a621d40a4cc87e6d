#include "PanelView/SweepDrawing.h"

#include "Drawing/Qt/Conversions.h"

#include <QFontMetricsF>

namespace mimkins::sweep {

QStringList lines(const std::string& words, const QFont& font, double width, int most) {
    return fittedLines(qt::text(words), font, width, most);
}

double heightOf(const QStringList& lines, const QFont& font) {
    return static_cast<double>(lines.size()) * QFontMetricsF(font).height();
}

double drawLines(QPainter& painter, const QStringList& lines, const QRectF& area, Qt::Alignment alignment) {
    const double height = QFontMetricsF(painter.font()).height();
    double top = area.top();
    for (const auto& line : lines) {
        painter.drawText(
            QRectF(area.left(), top, area.width(), height),
            static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine, line
        );
        top += height;
    }
    return top;
}

void drawFocus(QPainter& painter, const QWidget& widget, const Color& color, double radius) {
    if (widget.hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(qt::color(color.faded(0.85)), 1.5));
        painter.drawRoundedRect(QRectF(widget.rect()).adjusted(0.75, 0.75, -0.75, -0.75), radius, radius);
    }
}

} // namespace mimkins::sweep
