#include "Drawing/Qt/Scheme.h"

#include <QGuiApplication>
#include <QPalette>

namespace mimkins {

ColorScheme systemScheme() {
    const QPalette palette = QGuiApplication::palette();
    const bool isDark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    return isDark ? ColorScheme::dark : ColorScheme::light;
}

} // namespace mimkins
