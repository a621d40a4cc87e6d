#include "PanelView/PanelScreen.h"

#include "PanelView/ScrollBarStyle.h"

#include <QScrollBar>

namespace mimkins {

PanelScreen::PanelScreen() {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    viewport()->setAutoFillBackground(false);
}

void PanelScreen::setLook(const CardLook& look) {
    verticalScrollBar()->setStyleSheet(scrollBarStyle(*look.theme));
}

} // namespace mimkins
