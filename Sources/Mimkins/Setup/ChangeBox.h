#pragma once

#include "PanelView/CardLook.h"

#include <QWidget>

#include <vector>

class QLabel;

namespace mimkins {

/// The box with the three promises about what connecting changes.
class ChangeBox final : public QWidget {
public:
    ChangeBox();

    void setLook(const CardLook& look);

    const std::vector<QLabel*>& bullets() const { return bullets_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Mark;

    std::vector<Mark*> marks_;
    std::vector<QLabel*> bullets_;
    QColor ground_;
    double radius_ = 0;
};

} // namespace mimkins
