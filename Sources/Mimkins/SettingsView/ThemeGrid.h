#pragma once

#include "SettingsView/GroupWidget.h"
#include "SettingsView/ThemeTile.h"

#include <QButtonGroup>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace mimkins {

/// A tile for each theme, in two columns; in one where two have no room for the names.
class ThemeGrid final : public GroupWidget {
public:
    ThemeGrid();

    /// Called with the id of the theme that the user chooses.
    std::function<void(const std::string&)> onChoose;

    /// Shows the theme of this id as chosen, if there is one.
    void setChosen(const std::string& id);
    void setLook(const CardLook& look);

    const std::vector<ThemeTile*>& tiles() const { return tiles_; }

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int widest() const;
    int columns(int width) const;
    int tileHeight() const;
    void arrange();

    std::vector<ThemeTile*> tiles_;
    QButtonGroup group_;
};

} // namespace mimkins
