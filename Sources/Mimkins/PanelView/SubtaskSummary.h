#pragma once

#include "PanelView/Chip.h"

#include <QAbstractButton>

namespace mimkins {

/// A line that sums up some of the subtasks. It may be a button.
class SubtaskSummary final : public QAbstractButton {
public:
    enum class Kind { words, button };

    SubtaskSummary(Kind kind, CardLook look);

    void present(Symbol symbol, const std::string& words);
    void setLook(const CardLook& look);

    Symbol symbol() const { return symbol_; }

    double heightNeeded() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    Chip chip() const;

    CardLook look_;
    Kind kind_;
    Symbol symbol_ = Symbol::ellipsisCircle;
};

} // namespace mimkins
