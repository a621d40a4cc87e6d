#pragma once

#include "Setup/PillButton.h"

namespace mimkins {

/// Words with a button to their right, centred vertically. Where that leaves too little room for the words,
/// the button stands below them.
class PairRow final : public QWidget {
public:
    /// Takes both.
    PairRow(QWidget* words, PillButton* button);

    /// What the words need beside a button, in pixels.
    void setLeastRoom(int pixels);

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Places {
        QRect words;
        QRect button;
        int height = 0;
    };

    Places placesWithin(int width) const;
    void place();

    QWidget* words_;
    PillButton* button_;
    int leastRoom_ = 100;
};

} // namespace mimkins
