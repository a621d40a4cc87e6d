#include "Setup/ChangeBox.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/PainterCanvas.h"
#include "Drawing/Symbols.h"
#include "PanelView/Labels.h"
#include "Presentation/SetupWords.h"
#include "Setup/SetupKit.h"

#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr int padding = 12;
constexpr int rowSpacing = 8;
constexpr int markSpacing = 6;
constexpr double points = 11;
constexpr double leastRadius = 6;
constexpr double mostRadius = 14;

} // namespace

/// The tick before a line.
class ChangeBox::Mark final : public QWidget {
public:
    void setLook(const CardLook& look) {
        color_ = look.theme->yourTurn;
        scheme_ = look.scheme();
        side_ = points * look.typography.scale();
        const double line = QFontMetricsF(look.typography.systemFont(points)).height();
        setFixedSize(static_cast<int>(std::ceil(side_)), static_cast<int>(std::ceil(line)));
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        PainterCanvas canvas(painter, scheme_);
        GraphicsContext context(canvas);
        context.translateBy(0, (height() - side_) / 2);
        drawSymbol(context, Symbol::checkmarkCircleFilled, side_, color_);
    }

private:
    Color color_;
    ColorScheme scheme_ = ColorScheme::dark;
    double side_ = points;
};

ChangeBox::ChangeBox() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(rowSpacing);
    for (const auto words : SetupWords::bullets) {
        auto* row = new QHBoxLayout;
        row->setSpacing(markSpacing);
        marks_.push_back(new Mark);
        bullets_.push_back(kit::wrappedLabel(Qt::AlignLeft | Qt::AlignTop));
        kit::show(*bullets_.back(), words);
        row->addWidget(marks_.back(), 0, Qt::AlignTop);
        row->addWidget(bullets_.back(), 1);
        column->addLayout(row);
    }
}

void ChangeBox::setLook(const CardLook& look) {
    for (auto* mark : marks_) {
        mark->setLook(look);
    }
    for (auto* bullet : bullets_) {
        dress(*bullet, look.typography.systemFont(points), look.theme->subtext);
    }
    ground_ = qt::color(look.theme->text.faded(0.05));
    radius_ = std::clamp(look.theme->radius, leastRadius, mostRadius);
    update();
}

void ChangeBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground_);
    painter.drawRoundedRect(rect(), radius_, radius_);
}

} // namespace mimkins
