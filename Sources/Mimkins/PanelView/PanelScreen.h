#pragma once

#include "Base/Date.h"
#include "PanelView/CardLook.h"
#include "PanelView/ThinScrollBar.h"

#include <QScrollArea>

namespace mimkins {

/// A screen of the drawer that takes the place of the list of pets. It scrolls where it doesn't fit.
class PanelScreen : public QScrollArea {
public:
    PanelScreen();

    /// Called when the screen is given to the drawer, and whenever the look changes. What the look points to
    /// lives until the next call.
    virtual void setLook(const CardLook& look);

    /// Shows what moves as it is at a moment. Called for each frame in which somebody can see the screen.
    virtual void animate(Date) {}

private:
    ThinScrollBar* bar_;
};

} // namespace mimkins
