#pragma once

#include "PanelView/CardLook.h"

#include <QComboBox>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// Shows the chosen option, and the others when it is pressed.
class MenuPicker final : public QComboBox {
public:
    explicit MenuPicker(const std::vector<std::string_view>& options);

    /// Called with the place of an option that the user chooses, also if it was chosen before.
    std::function<void(std::size_t)> onChoose;

    /// Shows an option as chosen.
    void setChosen(std::size_t option);
    /// Shows words that are no option.
    void setForeign(const std::string& words);
    void setLook(const CardLook& look);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QFont wordsFont() const;

    CardLook look_;
};

} // namespace mimkins
