#include "PanelView/EdgeTab.h"

#include "Base/Perf.h"
#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Qt/Scheme.h"
#include "Drawing/Qt/Shapes.h"
#include "PanelView/AnimationTime.h"
#include "PanelView/StretchedPicture.h"
#include "Presentation/PanelFrames.h"
#include "Presentation/StatusItem.h"
#include "Presentation/Wiggle.h"

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

/// Between two frames, seconds.
constexpr double glowInterval = 0.1;

QString badgeText(std::int64_t count) {
    constexpr std::int64_t most = 99;
    return count > most ? QString("99+") : QString::number(count);
}

} // namespace

EdgeTab::EdgeTab(RunLoop& loop) : loop_(loop), theme_(PetTheme::nightSky()), typography_(theme_.font, 1) {
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
    redraw();
}

void EdgeTab::setCovered(bool covered) {
    covered_ = covered;
    keepTime();
}

void EdgeTab::setContent(const Content& content) {
    if (content_ == content) {
        return;
    }
    content_ = content;
    describe();
    keepTime();
    redraw();
}

void EdgeTab::redraw() {
    still_ = QImage();
    update();
}

const QImage& EdgeTab::frame() {
    prepare();
    const double opacity = content_.badge.blocked ? glowOpacity(glowMoment_) : 0;
    return composed({still_, outline_, opacity, offset_}, frame_);
}

void EdgeTab::showFrame() {
    if (!onFrame || !isVisible() || !onFrame(frame())) {
        update();
    }
}

void EdgeTab::keepTime() {
    const bool wanted = content_.badge.blocked && isVisible() && !covered_;
    const bool glows = wanted && !perf::off().contains("glow");
    const bool wiggles = wanted && content_.mayWiggle;
    if ((glowing_ && !glows) || (wiggling_ && !wiggles)) {
        update(); // the toolkit knows nothing of the frames until now, and there may be no other
    }
    if (!glows) {
        glowing_.reset();
    } else if (!glowing_) {
        glowMoment_ = animationTime(loop_.now());
        glowing_ = loop_.every(glowInterval, [this] { glow(); });
    }
    if (!wiggles) {
        wiggling_.reset();
        offset_ = 0;
    } else if (!wiggling_) {
        wiggle();
    }
}

void EdgeTab::glow() {
    glowMoment_ = animationTime(loop_.now());
    if (offset_ == 0) { // else the next frame of the wiggle shows it
        showFrame();
    }
}

void EdgeTab::wiggle() {
    const double t = animationTime(loop_.now());
    const double offset = wiggleOffset(t);
    if (offset_ != offset) {
        offset_ = offset;
        if (offset_ == 0 && !glowing_) {
            update(); // it rests, so the toolkit must know what it looks like
        } else {
            showFrame();
        }
    }
    const double next = nextWiggle(t);
    if (!wiggling_ || next != wiggleInterval_) { // all frames of a shake share a timer
        wiggleInterval_ = next;
        wiggling_ = loop_.every(next, [this] { wiggle(); });
    }
}

void EdgeTab::describe() {
    const QString words = qt::text(status_item::toggleWords(content_.drawerIsOpen));
    setToolTip(words);
    setAccessibleName(words);
    setAccessibleDescription(qt::text(edgeTabWords(content_.badge)));
}

bool EdgeTab::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        redraw();
    }
    const bool handled = QAbstractButton::event(event);
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        keepTime();
    }
    return handled;
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

void EdgeTab::drawBadge(QPainter& painter, double middle, double top) const {
    const QFont font = typography_.font(badgePoints, QFont::Black);
    const QString words = badgeText(content_.badge.count);
    const double wanted = QFontMetricsF(font).horizontalAdvance(words) + 6;
    const double width = std::min(std::max(wanted, badgeWidth), static_cast<double>(this->width()) - 2);
    const QRectF box(middle - width / 2, top, width, badgeHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(qt::color(content_.badge.blocked ? theme_.waiting : theme_.yourTurn));
    painter.drawRoundedRect(box, box.height() / 2, box.height() / 2);
    painter.setFont(font);
    painter.setPen(qt::color(Color::black(0.8)));
    painter.drawText(box, Qt::AlignCenter, words);
}

void EdgeTab::drawOutline(QPainter& painter) const {
    constexpr double lineWidth = 2;
    PainterCanvas canvas(painter, systemScheme());
    const Size whole{static_cast<double>(width()), static_cast<double>(height())};
    GraphicsContext(canvas).stroke(
        edgePath(whole, tabRadius, lineWidth / 2), theme_.waiting, StrokeStyle::plain(lineWidth)
    );
}

void EdgeTab::drawColumn(QPainter& painter) const {
    const QColor ink = qt::color(theme_.text.faded(underMouse() ? 1.0 : calmOpacity));
    const bool counted = content_.badge.count > 0;
    const QRectF area(rect());
    const double column = chevronSide + spacing + iconSide + (counted ? spacing + badgeHeight : 0);
    const double middle = area.center().x();
    double y = (area.height() - column) / 2;
    painter.setPen(QPen(ink, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    drawChevron(painter, {middle - chevronSide / 2, y, chevronSide, chevronSide});
    y += chevronSide + spacing;
    painter.fillPath(appIconPath({middle - iconSide / 2, y, iconSide, iconSide}), ink);
    y += iconSide + spacing;
    if (counted) {
        drawBadge(painter, middle, y);
    }
}

void EdgeTab::drawStill(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    backdrop_.draw(painter, QRegion(rect()), theme_, {size(), tabRadius, devicePixelRatioF()});
    drawColumn(painter);
}

void EdgeTab::prepare() {
    const double ratio = devicePixelRatioF();
    if (!still_.isNull() && still_.devicePixelRatio() == ratio) {
        return;
    }
    still_ = clearPicture(size(), ratio);
    outline_ = still_.copy();
    QPainter still(&still_);
    drawStill(still);
    QPainter outline(&outline_);
    drawOutline(outline);
}

void EdgeTab::paintEvent(QPaintEvent*) {
    const QImage& picture = frame();
    QPainter(this).drawImage(0, 0, picture);
}

} // namespace mimkins
