#pragma once

#include "PanelView/CardLook.h"
#include "PanelView/PetBox.h"
#include "Presentation/SweepWords.h"

#include <QAbstractButton>

namespace mimkins {

/// What shows when nothing keeps the user: a resting pet and two lines.
class AllClearView final : public QWidget {
public:
    static constexpr double petSide = 90;

    AllClearView(const SweepWords::AllClear& words, const CardLook& look, Date now);

    void setWords(const SweepWords::AllClear& words);
    void animate(Date now);

    const SweepWords::AllClear& words() const { return words_; }

    const PetBox& pet() const { return *pet_; }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QFont titleFont() const;
    QFont detailFont() const;

    SweepWords::AllClear words_;
    CardLook look_;
    PetBox* pet_;
};

/// The button that starts a sweep.
class CheckButton final : public QAbstractButton {
public:
    explicit CheckButton(const CardLook& look);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CardLook look_;
};

} // namespace mimkins
