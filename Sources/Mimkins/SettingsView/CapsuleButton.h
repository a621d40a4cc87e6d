#pragma once

#include "Drawing/Symbols.h"
#include "PanelView/CardLook.h"

#include <QPushButton>

#include <string_view>

namespace mimkins {

/// A small bordered button with a symbol before its title.
class CapsuleButton final : public QPushButton {
public:
    CapsuleButton(Symbol symbol, std::string_view title);

    void setLook(const CardLook& look);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QFont titleFont() const;

    Symbol symbol_;
    CardLook look_;
};

} // namespace mimkins
