#pragma once

#include "PanelView/HeaderButtons.h"
#include "PanelView/SummaryLabel.h"
#include "Presentation/DrawerState.h"

#include <QLabel>
#include <QWidget>

#include <functional>

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

    /// Called with the screen that a press on one of the buttons leads to.
    std::function<void(DrawerMode)> onMode;

    /// The cog is away until there is a screen that it leads to.
    void showCog();
    /// `spins` is false where nobody would see the cog turn.
    void present(DrawerMode mode, const Summary& summary, bool spins = false);
    /// Lets the cog blink in time.
    void setNow(Date now);
    void setLook(const PetTheme& theme, const Typography& typography);

    const SummaryLabel& summaryLabel() const { return *summary_; }

    const TitleLabel& titleLabel() const { return *title_; }

    CogButton& cog() { return *cog_; }

    MoonButton& moon() { return *moon_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void goTo(DrawerMode mode);
    void fitTitle();

    TitleLabel* title_;
    CogButton* cog_;
    MoonButton* moon_;
    SummaryLabel* summary_;
    DrawerMode mode_ = DrawerMode::pets;
    const PetTheme* theme_;
    Typography typography_;
    Summary present_;
};

} // namespace mimkins
