#include "PanelView/EmptyState.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "PanelView/AccessibleRole.h"
#include "Presentation/EmptyWords.h"

#include <QFontMetricsF>
#include <QPainter>

namespace mimkins {

namespace {

constexpr double iconSide = 34;
constexpr double spacing = 6;
constexpr double points = 13;

} // namespace

EmptyState::EmptyState() {
    setAccessibleRole(*this, QAccessible::StaticText);
    setAccessibleName(qt::text(noPetsOut));
}

void EmptyState::setLook(const PetTheme& theme, const Typography& typography) {
    theme_ = &theme;
    setFont(typography.font(points));
    update();
}

void EmptyState::paintEvent(QPaintEvent*) {
    if (theme_ == nullptr) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = QFontMetricsF(font()).height();
    const double top = (height() - iconSide - spacing - line) / 2;
    const QColor color = qt::color(theme_->subtext);
    painter.fillPath(appIconPath({(width() - iconSide) / 2, top, iconSide, iconSide}), color);
    painter.setPen(color);
    painter.setFont(font());
    painter.drawText(
        QRectF(0, top + iconSide + spacing, width(), line), Qt::AlignHCenter | Qt::TextSingleLine,
        qt::text(noPetsOut)
    );
}

} // namespace mimkins
