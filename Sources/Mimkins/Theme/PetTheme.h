#pragma once

#include "Drawing/Color.h"
#include "Drawing/Geometry.h"
#include "Drawing/TextRun.h"

#include <optional>
#include <string_view>
#include <vector>

namespace mimkins {

/// A soft light spot on the sky.
struct Glow {
    Color color;
    Point center;      ///< 0 to 1 in each axis, y downwards
    double radius = 0; ///< points
};

enum class Texture { none, dots, ruled, scanlines, grid };
enum class Particles { none, sparks, fireflies, bubbles };

/// One flat record that decides the whole look of the drawer.
struct PetTheme {
    std::string_view id; ///< key stored in the settings
    std::string_view name;
    std::string_view blurb;
    std::optional<ColorScheme> scheme; ///< absent follows the system
    std::vector<Color> sky;            ///< background gradient, top to bottom; none for an empty list
    std::vector<Glow> glows;
    Texture texture = Texture::none;
    Particles particles = Particles::none;
    std::vector<Color> particleColors;
    std::vector<Color> border; ///< gradient stops
    bool borderTravels = false;
    double borderWidth = 1;         ///< points
    std::vector<double> borderDash; ///< solid for an empty list
    std::vector<Color> title;       ///< gradient of the title's text
    Color text;
    Color subtext;
    FontDesign font = FontDesign::standard;
    Color cardBase;
    double cardTint = 0;
    double cardStroke = 0;
    double radius = 0; ///< of a card's corners, points
    bool stripe = false;
    bool pad = false;
    Color cardShadow;
    Color working;
    Color waiting;
    Color question;
    Color yourTurn;
    Color quiet;
    Color snag;
    std::optional<double> petHue; ///< absent lets each pet's seed choose
    double petSaturation = 1;
    double petBrightness = 1;
    std::optional<Color> petOutline;
    std::vector<Color> cog;

    /// All themes in the order in which they are offered.
    static const std::vector<PetTheme>& all();
    /// The theme of exactly this id, else the night sky.
    static const PetTheme& named(std::string_view id);
    static const PetTheme& nightSky();

    /// The scheme it is shown under: its own, else the system's.
    ColorScheme schemeUnder(ColorScheme system) const { return scheme.value_or(system); }

    /// The same theme with plain colours in place of the named ones.
    PetTheme resolved(ColorScheme system) const;

    friend bool operator==(const PetTheme& left, const PetTheme& right) { return left.id == right.id; }
};

} // namespace mimkins
