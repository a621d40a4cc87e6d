#include "PanelView/PanelScreen.h"

namespace mimkins {

PanelScreen::PanelScreen() : bar_(new ThinScrollBar) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setVerticalScrollBar(bar_);
    setWidgetResizable(true);
    viewport()->setAutoFillBackground(false);
}

void PanelScreen::setLook(const CardLook& look) {
    bar_->setTheme(*look.theme);
}

} // namespace mimkins
