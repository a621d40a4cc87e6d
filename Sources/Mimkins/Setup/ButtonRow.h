#pragma once

#include "Setup/PillButton.h"

#include <vector>

namespace mimkins {

/// Buttons side by side in the middle. Where the row is too narrow for them they stand one below the other,
/// the last one first.
class ButtonRow final : public QWidget {
public:
    ButtonRow();

    /// Takes the buttons; those that were there go.
    void setButtons(std::vector<PillButton*> buttons);

    const std::vector<PillButton*>& buttons() const { return buttons_; }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Places {
        std::vector<QRect> frames; ///< of the buttons
        int height = 0;
    };

    Places placesWithin(int width) const;
    void place();

    std::vector<PillButton*> buttons_;
};

} // namespace mimkins
