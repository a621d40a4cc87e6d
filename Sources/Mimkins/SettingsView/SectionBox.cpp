#include "SettingsView/SectionBox.h"

#include "Drawing/Qt/Conversions.h"
#include "SettingsView/ControlDrawing.h"

#include <QPainter>

namespace mimkins {

namespace {

constexpr int titleGap = 6;
constexpr int titleIndent = 4;
constexpr int padding = 12;
constexpr int bleed = 3; ///< room for outlines of controls at the right edge
constexpr int wordsSpacing = 5;
constexpr int rowSpacing = 11;
constexpr double titlePoints = 10;
constexpr double titleKerning = 0.8;

} // namespace

SectionBox::SectionBox(std::string_view title)
    : title_(new Words({titlePoints, QFont::ExtraBold, Words::Ink::text, titleKerning})),
      rows_(new QVBoxLayout), look_(controls::plainLook()) {
    setAccessibleName(qt::text(title));
    title_->setText(qt::text(title).toUpper());
    title_->setAccessibleName(qt::text(title));
    title_->setContentsMargins(titleIndent, 0, 0, 0);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(titleGap);
    column->addWidget(title_);
    rows_->setContentsMargins(padding, padding, padding - bleed, padding);
    rows_->setSpacing(wordsSpacing);
    column->addLayout(rows_);
}

void SectionBox::add(QWidget& row) {
    const bool isClose = rows_->count() == 0 || dynamic_cast<Words*>(&row) != nullptr;
    row.setContentsMargins(0, isClose ? 0 : rowSpacing - wordsSpacing, bleed, 0);
    rows_->addWidget(&row);
}

void SectionBox::setLook(const CardLook& look) {
    look_ = look;
    title_->setLook(look);
    update();
}

void SectionBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box(rows_->geometry());
    const PetTheme& theme = *look_.theme;
    const QColor base =
        theme.cardBase.opacity == 0 ? controls::primary(look_, 0.05) : qt::color(theme.cardBase);
    controls::fillRounded(painter, box, theme.radius, base);
    controls::strokeRounded(painter, box, theme.radius, QPen(controls::primary(look_, 0.08), 1));
}

} // namespace mimkins
