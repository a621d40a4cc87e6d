#include "Drawing/Qt/Fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStringList>

namespace mimkins {

namespace {

QStringList families(FontDesign design) {
    switch (design) {
    case FontDesign::rounded:
        return {"Nunito", "Quicksand", "Varela Round", "M PLUS Rounded 1c", "Comfortaa", "Ubuntu"};
    case FontDesign::serif:
        return {"Source Serif 4", "Noto Serif", "DejaVu Serif", "Liberation Serif"};
    case FontDesign::monospaced:
        return {"JetBrains Mono", "Noto Sans Mono", "DejaVu Sans Mono", "Liberation Mono"};
    case FontDesign::standard:
        break;
    }
    return {};
}

QFont::Weight weightOf(FontWeight weight) {
    switch (weight) {
    case FontWeight::regular:
        return QFont::Normal;
    case FontWeight::semibold:
        return QFont::DemiBold;
    case FontWeight::bold:
        return QFont::Bold;
    case FontWeight::heavy:
        return QFont::ExtraBold;
    case FontWeight::black:
        return QFont::Black;
    }
    return QFont::Normal;
}

} // namespace

QString fontFamily(FontDesign design) {
    for (const auto& family : families(design)) {
        if (QFontDatabase::hasFamily(family)) {
            return family;
        }
    }
    return QGuiApplication::font().family();
}

QFont fontOf(FontDesign design, FontWeight weight) {
    QFont font(fontFamily(design));
    font.setWeight(weightOf(weight));
    return font;
}

} // namespace mimkins
