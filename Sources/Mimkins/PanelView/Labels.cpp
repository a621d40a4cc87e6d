#include "PanelView/Labels.h"

#include "Drawing/Qt/Conversions.h"

namespace mimkins {

void dress(QLabel& label, const QFont& font, const Color& color) {
    label.setFont(font);
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, qt::color(color));
    label.setPalette(palette);
}

} // namespace mimkins
