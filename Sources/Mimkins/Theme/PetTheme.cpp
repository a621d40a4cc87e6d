#include "Theme/PetTheme.h"

#include "Theme/Catalogue.h"

#include <algorithm>

namespace mimkins {

const std::vector<PetTheme>& PetTheme::all() {
    static const std::vector<PetTheme> themes{
        catalogue::classic(),  catalogue::night(),     catalogue::paper(), catalogue::pastel(),
        catalogue::midnight(), catalogue::forest(),    catalogue::ocean(), catalogue::sunset(),
        catalogue::terminal(), catalogue::synthwave(),
    };
    return themes;
}

const PetTheme& PetTheme::nightSky() {
    static const PetTheme theme = catalogue::night();
    return theme;
}

const PetTheme& PetTheme::named(std::string_view id) {
    const auto found =
        std::find_if(all().begin(), all().end(), [id](const PetTheme& theme) { return theme.id == id; });
    return found != all().end() ? *found : nightSky();
}

PetTheme PetTheme::resolved(ColorScheme system) const {
    PetTheme plain = *this;
    const ColorScheme shown = schemeUnder(system);
    plain.scheme = shown;
    for (Glow& glow : plain.glows) {
        glow.color = glow.color.resolved(shown);
    }
    for (auto* colors : {&plain.sky, &plain.particleColors, &plain.border, &plain.title, &plain.cog}) {
        for (Color& color : *colors) {
            color = color.resolved(shown);
        }
    }
    for (Color* color :
         {&plain.text, &plain.subtext, &plain.cardBase, &plain.cardShadow, &plain.working, &plain.waiting,
          &plain.question, &plain.yourTurn, &plain.quiet, &plain.snag}) {
        *color = color->resolved(shown);
    }
    return plain;
}

} // namespace mimkins
