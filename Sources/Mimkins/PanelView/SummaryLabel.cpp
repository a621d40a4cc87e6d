#include "PanelView/SummaryLabel.h"

#include "Drawing/Qt/Conversions.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
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

QString SummaryLabel::shownWords() const {
    const QFontMetricsF metrics(font());
    const double room = width() - 2 * paddingX + 0.5; // the width that was asked for was rounded
    for (const int words : {4, 2, 1}) {
        QString shown = text().section(' ', 0, words - 1);
        if (metrics.horizontalAdvance(shown) <= room) {
            return shown;
        }
    }
    return metrics.elidedText(text(), Qt::ElideRight, room);
}

void SummaryLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QString words = shownWords();
    const double wanted = std::ceil(QFontMetricsF(font()).horizontalAdvance(words)) + 2 * paddingX;
    const double shown = std::min(wanted, static_cast<double>(width()));
    const QRectF capsule(width() - shown, 0, shown, height());
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill_);
    painter.drawRoundedRect(capsule, height() / 2.0, height() / 2.0);
    painter.setPen(ink_);
    painter.drawText(
        capsule.adjusted(paddingX, 0, 1 - paddingX, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        words
    );
}

} // namespace mimkins
