#include "PanelView/EdgeTab.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Scheme.h"
#include "Drawing/Qt/Shapes.h"
#include "Presentation/PanelFrames.h"
#include "Presentation/StatusItem.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace mimkins {

namespace {

constexpr double spacing = 7;
constexpr double chevronSide = 18;
constexpr double iconSide = 15;
constexpr double badgeWidth = 17;
constexpr double badgeHeight = 16;
constexpr double badgePoints = 11;
constexpr double calmOpacity = 0.85;
constexpr double outlineOpacity = 0.8;

QString badgeText(std::int64_t count) {
    constexpr std::int64_t most = 99;
    return count > most ? QString("99+") : QString::number(count);
}

} // namespace

EdgeTab::EdgeTab() : theme_(PetTheme::nightSky()), typography_(theme_.font, 1) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_Hover);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    setWindowTitle("Mimkins tab");
    setFixedSize(static_cast<int>(panel::tabWidth), static_cast<int>(panel::tabHeight));
    setCursor(Qt::PointingHandCursor);
    describe();
}

void EdgeTab::setTheme(const PetTheme& theme) {
    theme_ = theme.resolved(systemScheme());
    typography_ = Typography(theme.font, 1); // the tab's size is fixed, and so is its text's
    update();
}

void EdgeTab::setContent(const Content& content) {
    if (content_ == content) {
        return;
    }
    content_ = content;
    describe();
    update();
}

void EdgeTab::describe() {
    const QString words = qt::text(status_item::toggleWords(content_.drawerIsOpen));
    setToolTip(words);
    setAccessibleName(words);
    setAccessibleDescription(content_.badge.count > 0 ? badgeText(content_.badge.count) : QString());
}

bool EdgeTab::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        update();
    }
    return QAbstractButton::event(event);
}

void EdgeTab::contextMenuEvent(QContextMenuEvent* event) {
    if (onMenu) {
        onMenu(event->globalPos());
    }
}

void EdgeTab::drawChevron(QPainter& painter, const QRectF& box) const {
    const double point = content_.drawerIsOpen ? 2.5 : -2.5;
    const QPointF middle = box.center();
    QPainterPath path;
    path.moveTo(middle + QPointF(-point, -6));
    path.lineTo(middle + QPointF(point, 0));
    path.lineTo(middle + QPointF(-point, 6));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
}

void EdgeTab::drawBadge(QPainter& painter, const QRectF& box) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(qt::color(content_.badge.blocked ? theme_.waiting : theme_.yourTurn));
    painter.drawRoundedRect(box, box.height() / 2, box.height() / 2);
    painter.setFont(typography_.font(badgePoints, QFont::Black));
    painter.setPen(qt::color(Color::black(0.8)));
    painter.drawText(box, Qt::AlignCenter, badgeText(content_.badge.count));
}

void EdgeTab::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(rect());
    const QPainterPath shape = edgeShape(area, tabRadius);
    backdrop_.draw(painter, theme_, {shape, size(), devicePixelRatioF()});
    if (content_.badge.blocked) {
        painter.setClipPath(shape);
        painter.strokePath(shape, QPen(qt::color(theme_.waiting.faded(outlineOpacity)), 4));
    }
    const QColor ink = qt::color(theme_.text.faded(underMouse() ? 1.0 : calmOpacity));
    const bool counted = content_.badge.count > 0;
    const double height = chevronSide + spacing + iconSide + (counted ? spacing + badgeHeight : 0);
    const double middle = area.center().x();
    double y = (area.height() - height) / 2;
    painter.setPen(QPen(ink, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    drawChevron(painter, {middle - chevronSide / 2, y, chevronSide, chevronSide});
    y += chevronSide + spacing;
    painter.fillPath(appIconPath({middle - iconSide / 2, y, iconSide, iconSide}), ink);
    y += iconSide + spacing;
    if (counted) {
        const QFontMetricsF metrics(typography_.font(badgePoints, QFont::Black));
        const double words = metrics.horizontalAdvance(badgeText(content_.badge.count)) + 6;
        const double width = std::min(std::max(words, badgeWidth), area.width() - 2);
        drawBadge(painter, {middle - width / 2, y, width, badgeHeight});
    }
}

} // namespace mimkins
