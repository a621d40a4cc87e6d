#include "Theme/PetTheme.h"

#include <algorithm>

namespace mimkins {

namespace {

constexpr Color rgb(double red, double green, double blue, double opacity = 1) {
    return {red, green, blue, opacity};
}

PetTheme night() {
    constexpr Color mint = rgb(0.35, 0.92, 0.82);
    constexpr Color violet = rgb(0.55, 0.45, 1);
    constexpr Color pink = rgb(1, 0.45, 0.75);
    constexpr Color amber = rgb(1, 0.78, 0.35);
    return {
        .id = "night",
        .name = "Night Sky",
        .blurb = "Indigo night, soft glows, drifting sparks",
        .scheme = ColorScheme::dark,
        .sky = {rgb(0.14, 0.12, 0.32), rgb(0.06, 0.06, 0.15)},
        .glows = {{mint.faded(0.22), {0, 0}, 340}, {pink.faded(0.16), {1, 1}, 380}},
        .texture = Texture::dots,
        .particles = Particles::sparks,
        .particleColors = {mint, pink, amber},
        .border = {mint, violet, pink, amber, mint},
        .borderTravels = true,
        .borderWidth = 1.5,
        .borderDash = {},
        .title = {mint, violet, pink},
        .text = Color::white(),
        .subtext = Color::white(0.6),
        .font = FontDesign::rounded,
        .cardBase = Color::white(0.045),
        .cardTint = 0.18,
        .cardStroke = 0.22,
        .radius = 14,
        .stripe = true,
        .pad = true,
        .cardShadow = Color::black(0.25),
        .working = rgb(0.4, 0.65, 1),
        .waiting = amber,
        .question = pink,
        .yourTurn = rgb(0.4, 0.95, 0.55),
        .quiet = Color::grey(0.6),
        .snag = rgb(1, 0.85, 0.3),
        .petHue = std::nullopt,
        .petSaturation = 1,
        .petBrightness = 1,
        .petOutline = std::nullopt,
        .cog = {mint, violet},
    };
}

} // namespace

const std::vector<PetTheme>& PetTheme::all() {
    static const std::vector<PetTheme> themes{night()};
    return themes;
}

const PetTheme& PetTheme::nightSky() {
    static const PetTheme theme = night();
    return theme;
}

const PetTheme& PetTheme::named(std::string_view id) {
    const auto found =
        std::find_if(all().begin(), all().end(), [id](const PetTheme& theme) { return theme.id == id; });
    return found != all().end() ? *found : nightSky();
}

} // namespace mimkins
