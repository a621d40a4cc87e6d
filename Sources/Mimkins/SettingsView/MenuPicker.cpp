#include "SettingsView/MenuPicker.h"

#include "Drawing/Qt/Conversions.h"
#include "SettingsView/ControlDrawing.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace mimkins {

namespace {

constexpr double wordsPoints = 11;
constexpr double paddingX = 9;
constexpr double paddingY = 5;
constexpr double chevronWidth = 8;
constexpr double chevronGap = 8;

/// The colour that lies behind the list, which is a window of its own.
QColor popupGround(const CardLook& look) {
    const auto& sky = look.theme->sky;
    if (sky.empty()) {
        return look.scheme() == ColorScheme::dark ? QColor(46, 46, 50) : QColor(246, 246, 247);
    }
    return qt::color(sky.back());
}

} // namespace

MenuPicker::MenuPicker(const std::vector<std::string_view>& options) : look_(controls::plainLook()) {
    for (const auto option : options) {
        addItem(qt::text(option));
    }
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QComboBox::activated, this, [this](int option) {
        if (onChoose) {
            onChoose(static_cast<std::size_t>(option));
        }
    });
}

void MenuPicker::setChosen(std::size_t option) {
    setPlaceholderText({});
    setCurrentIndex(static_cast<int>(option));
    update();
}

void MenuPicker::setForeign(const std::string& words) {
    setPlaceholderText(qt::text(words));
    setCurrentIndex(-1);
    update();
}

void MenuPicker::setLook(const CardLook& look) {
    look_ = look;
    const QColor ground = popupGround(look_);
    view()->setFont(wordsFont());
    view()->setStyleSheet(QString("QAbstractItemView { background: %1; color: %2; border: 1px solid %3;"
                                  " outline: 0; padding: 3px; }"
                                  "QAbstractItemView::item { padding: 5px 6px; border-radius: 4px; }"
                                  "QAbstractItemView::item:selected { background: %4; color: %5; }")
                              .arg(
                                  ground.name(), qt::color(look_.theme->text).name(),
                                  controls::primary(look_, 0.25).name(QColor::HexArgb),
                                  controls::accent(look_).name(), controls::inkOnAccent(look_).name()
                              ));
    updateGeometry();
    update();
}

QFont MenuPicker::wordsFont() const {
    return look_.typography.systemFont(wordsPoints, QFont::Medium);
}

QSize MenuPicker::sizeHint() const {
    int words = controls::widthOf(placeholderText(), wordsFont());
    for (int index = 0; index < count(); ++index) {
        words = std::max(words, controls::widthOf(itemText(index), wordsFont()));
    }
    return {
        words + controls::scaled(look_, 2 * paddingX + chevronWidth + chevronGap),
        QFontMetrics(wordsFont()).height() + controls::scaled(look_, 2 * paddingY)};
}

QSize MenuPicker::minimumSizeHint() const {
    return sizeHint();
}

/// The wheel scrolls the screen that the menu stands on.
void MenuPicker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void MenuPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(rect());
    const double radius = controls::radius(look_) + 2;
    controls::fillRounded(painter, area, radius, controls::ground(look_, {underMouse(), false}));
    const QColor ink = qt::color(look_.theme->text);
    painter.setFont(wordsFont());
    painter.setPen(ink);
    const int padding = controls::scaled(look_, paddingX);
    const int chevron = controls::scaled(look_, chevronWidth);
    painter.drawText(
        area.adjusted(padding, 0, -padding - chevron, 0),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        currentIndex() >= 0 ? currentText() : placeholderText()
    );
    const double half = chevron / 2.0;
    const QPointF middle(area.right() - padding - half, area.center().y());
    painter.setPen(QPen(ink, 1.5 * look_.typography.scale(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const double way : {-1.0, 1.0}) {
        const double base = way * half * 0.55;
        painter.drawPolyline(QPolygonF(
            {middle + QPointF(-half * 0.7, base), middle + QPointF(0, base + way * half * 0.7),
             middle + QPointF(half * 0.7, base)}
        ));
    }
    if (hasFocus()) {
        controls::drawFocusRing(painter, area, radius, look_);
    }
}

} // namespace mimkins
