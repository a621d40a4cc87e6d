#include "Drawing/Qt/Fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStringList>

#include <array>

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

QString firstInstalled(FontDesign design) {
    for (const auto& family : families(design)) {
        if (QFontDatabase::hasFamily(family)) {
            return family;
        }
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
    // Looking through the installed families takes longer than setting a whole card in one of them.
    static const std::array<QString, 4> installed{
        firstInstalled(FontDesign::standard), firstInstalled(FontDesign::rounded),
        firstInstalled(FontDesign::serif), firstInstalled(FontDesign::monospaced)};
    const QString& family = installed.at(static_cast<std::size_t>(design));
    return family.isEmpty() ? QGuiApplication::font().family() : family;
}

QFont fontOf(FontDesign design, FontWeight weight) {
    QFont font(fontFamily(design));
    font.setWeight(weightOf(weight));
    return font;
}

} // namespace mimkins
