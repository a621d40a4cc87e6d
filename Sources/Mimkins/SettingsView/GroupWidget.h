#pragma once

#include <QAbstractButton>
#include <QWidget>

#include <vector>

namespace mimkins {

/// A widget that holds others which belong together. Screen readers tell its accessible name with theirs.
class GroupWidget : public QWidget {
public:
    GroupWidget();
};

/// Lets the Tab key reach one of a few buttons: the one that is checked, else the first. The arrow keys lead
/// to the others.
template <typename Button>
void giveTabToTheChecked(const std::vector<Button*>& buttons) {
    const Button* reached = buttons.front();
    for (const auto* button : buttons) {
        reached = button->isChecked() ? button : reached;
    }
    for (auto* button : buttons) {
        button->setFocusPolicy(button == reached ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

} // namespace mimkins
