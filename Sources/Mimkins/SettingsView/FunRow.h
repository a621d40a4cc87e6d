#pragma once

#include "SettingsView/CapsuleButton.h"

#include <QWidget>

#include <vector>

namespace mimkins {

/// Buttons of the same width beside one another; below one another where they don't fit.
class FunRow final : public QWidget {
public:
    FunRow();

    /// Takes a button.
    void add(CapsuleButton* button);
    void setLook(const CardLook& look);

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int widest() const;
    int buttonHeight() const;
    int columns(int width) const;
    void arrange();

    std::vector<CapsuleButton*> buttons_;
};

} // namespace mimkins
