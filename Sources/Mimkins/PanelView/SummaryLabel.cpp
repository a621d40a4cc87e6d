#include "PanelView/SummaryLabel.h"

#include "Drawing/Qt/Conversions.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace mimkins {

namespace {

constexpr int paddingX = 9;
constexpr int paddingY = 4;
constexpr double points = 11;

} // namespace

SummaryLabel::SummaryLabel() {
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void SummaryLabel::setSummary(const Summary& summary, const PetTheme& theme, const Typography& typography) {
    ink_ = qt::color(summaryInk(theme, summary.kind));
    fill_ = qt::color(summaryFill(theme, summary.kind));
    setFont(typography.font(points, QFont::DemiBold));
    setText(qt::text(summary.text));
    updateGeometry();
    update();
}

QSize SummaryLabel::sizeHint() const {
    const QFontMetricsF metrics(font());
    const int width = static_cast<int>(std::ceil(metrics.horizontalAdvance(text())));
    return {width + 2 * paddingX, static_cast<int>(std::ceil(metrics.height())) + 2 * paddingY};
}

QSize SummaryLabel::minimumSizeHint() const {
    return {4 * paddingX, sizeHint().height()};
}

void SummaryLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill_);
    painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
    const QRectF inner = QRectF(rect()).adjusted(paddingX, 0, -paddingX, 0);
    // Half a point of slack: the width that was asked for was rounded.
    const QString words = QFontMetricsF(font()).elidedText(text(), Qt::ElideRight, inner.width() + 0.5);
    painter.setPen(ink_);
    painter.drawText(
        inner.adjusted(0, 0, 1, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, words
    );
}

} // namespace mimkins
