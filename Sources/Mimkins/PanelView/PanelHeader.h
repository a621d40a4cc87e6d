#pragma once

#include "PanelView/SummaryLabel.h"
#include "Presentation/DrawerState.h"

#include <QLabel>
#include <QWidget>

namespace mimkins {

/// The icon and the title of the screen, painted with the theme's gradient.
class TitleLabel final : public QLabel {
public:
    void setLook(const PetTheme& theme, const Typography& typography);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PetTheme* theme_ = nullptr;
};

/// The drawer's first row.
class PanelHeader final : public QWidget {
public:
    PanelHeader();

    void present(DrawerMode mode, const Summary& summary);
    void setLook(const PetTheme& theme, const Typography& typography);

    const SummaryLabel& summaryLabel() const { return *summary_; }

    const TitleLabel& titleLabel() const { return *title_; }

private:
    TitleLabel* title_;
    SummaryLabel* summary_;
    const PetTheme* theme_;
    Typography typography_;
    Summary present_;
};

} // namespace mimkins
