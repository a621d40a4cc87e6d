#include "PanelView/PanelHeader.h"

#include "Drawing/Qt/Conversions.h"
#include "Drawing/Qt/Shapes.h"
#include "Presentation/HeaderWords.h"

#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace mimkins {

namespace {

constexpr int paddingX = 14;
constexpr int paddingY = 11;
constexpr int spacing = 8;
constexpr double iconSide = 18;
constexpr double titlePoints = 15;

QLinearGradient across(const QRectF& area, const std::vector<Color>& colors) {
    QLinearGradient gradient(area.topLeft(), area.topRight());
    const double last = static_cast<double>(std::max<std::size_t>(colors.size(), 2) - 1);
    for (std::size_t index = 0; index < colors.size(); ++index) {
        gradient.setColorAt(static_cast<double>(index) / last, qt::color(colors[index]));
    }
    return gradient;
}

} // namespace

void TitleLabel::setLook(const PetTheme& theme, const Typography& typography) {
    theme_ = &theme;
    setFont(typography.font(titlePoints, QFont::Black));
    updateGeometry();
    update();
}

QSize TitleLabel::sizeHint() const {
    const QFontMetricsF metrics(font());
    const double height = std::max(metrics.height(), iconSide);
    const double width = iconSide + spacing + metrics.horizontalAdvance(text());
    return {static_cast<int>(std::ceil(width)) + 1, static_cast<int>(std::ceil(height))};
}

QSize TitleLabel::minimumSizeHint() const {
    return sizeHint();
}

void TitleLabel::paintEvent(QPaintEvent*) {
    if (theme_ == nullptr) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(rect());
    const QBrush brush(across(area, theme_->title));
    painter.fillPath(appIconPath({0, (area.height() - iconSide) / 2, iconSide, iconSide}), brush);
    painter.setPen(QPen(brush, 1));
    painter.setFont(font());
    const QRectF words = area.adjusted(iconSide + spacing, 0, 0, 0);
    painter.drawText(
        words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        QFontMetricsF(font()).elidedText(text(), Qt::ElideRight, words.width())
    );
}

PanelHeader::PanelHeader()
    : title_(new TitleLabel), cog_(new CogButton), moon_(new MoonButton), summary_(new SummaryLabel),
      theme_(&PetTheme::nightSky()), typography_(theme_->font) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(paddingX, paddingY, paddingX, paddingY);
    row->setSpacing(spacing);
    row->addWidget(title_);
    row->addWidget(cog_);
    row->addWidget(moon_);
    cog_->hide();
    connect(cog_, &QAbstractButton::clicked, this, [this] { goTo(header::afterSettingsButton(mode_)); });
    connect(moon_, &QAbstractButton::clicked, this, [this] { goTo(header::afterWrapUpButton(mode_)); });
    row->addStretch(1);
    row->addWidget(summary_);
}

void PanelHeader::setLook(const PetTheme& theme, const Typography& typography) {
    theme_ = &theme;
    typography_ = typography;
    title_->setLook(theme, typography);
    cog_->setTheme(theme);
    moon_->setTheme(theme);
    summary_->setSummary(present_, theme, typography);
    fitTitle();
}

/// The title takes what the buttons and the shortest summary leave; an ordinary one leaves more than enough.
void PanelHeader::fitTitle() {
    double taken = 2 * paddingX;
    for (const auto* button : {static_cast<QWidget*>(cog_), static_cast<QWidget*>(moon_)}) {
        taken += button->isHidden() ? 0 : HeaderButton::side + spacing;
    }
    taken += summary_->isHidden() ? 0 : summary_->minimumSizeHint().width() + spacing;
    title_->setMaximumWidth(std::max(width() - static_cast<int>(taken), 1));
}

void PanelHeader::resizeEvent(QResizeEvent*) {
    fitTitle();
}

void PanelHeader::showCog() {
    cog_->show();
}

void PanelHeader::goTo(DrawerMode mode) {
    if (onMode) {
        onMode(mode);
    }
}

void PanelHeader::setNow(Date now) {
    if (cog_->isVisible()) {
        cog_->setNow(now);
    }
}

void PanelHeader::present(DrawerMode mode, const Summary& summary, bool spins) {
    mode_ = mode;
    cog_->setOpen(mode == DrawerMode::settings, spins && cog_->isVisible());
    cog_->setWords(qt::text(header::settingsName), qt::text(header::settingsToolTip(mode)));
    moon_->setFilled(mode == DrawerMode::sweep);
    moon_->setWords(qt::text(header::wrapUpName), qt::text(header::wrapUpToolTip(mode)));
    title_->setText(qt::text(header::title(mode)));
    title_->updateGeometry();
    present_ = summary;
    summary_->setSummary(summary, *theme_, typography_);
    summary_->setToolTip(qt::text(summary.text));
    summary_->setVisible(header::showsSummary(mode));
    fitTitle();
}

} // namespace mimkins
