#pragma once

#include "PanelView/CardLook.h"
#include "Pet/PetFrame.h"

#include <QImage>
#include <QWidget>

namespace mimkins {

/// A pet in a square of its own.
class PetBox final : public QWidget {
public:
    PetBox(Pet pet, double points, const CardLook& look);

    void setLook(const CardLook& look);
    /// Shows another pet, as it is at the moment that was shown last.
    void setPet(const Pet& pet);
    /// Draws the pet as it is at a moment.
    void animate(Date now);

    Date moment() const { return moment_; }

    const Pet& pet() const { return pet_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Pet pet_;
    double points_;
    PetLook pets_;
    ColorScheme scheme_ = ColorScheme::dark;
    Date moment_;
    QImage image_;
};

} // namespace mimkins
