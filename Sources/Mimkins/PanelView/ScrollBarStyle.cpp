#include "PanelView/ScrollBarStyle.h"

#include "Drawing/Qt/Conversions.h"

namespace mimkins {

QString scrollBarStyle(const PetTheme& theme) {
    const QString handle = qt::color(theme.text.faded(0.22)).name(QColor::HexArgb);
    return QString("QScrollBar:vertical { background: transparent; width: 6px; margin: 2px 0; }"
                   "QScrollBar::handle:vertical { background: %1; border-radius: 3px; min-height: 24px; }"
                   "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
                   "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }")
        .arg(handle);
}

} // namespace mimkins
