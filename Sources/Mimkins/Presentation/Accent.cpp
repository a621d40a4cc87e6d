#include "Presentation/Accent.h"

#include <algorithm>

namespace mimkins {

namespace {

bool isGrey(const Color& color) {
    constexpr double leastSaturation = 0.3;
    const double most = std::max({color.red, color.green, color.blue});
    const double least = std::min({color.red, color.green, color.blue});
    return most - least <= leastSaturation * most;
}

} // namespace

Color accent(const PetTheme& theme) {
    return theme.title.empty() ? theme.working : theme.title.front();
}

Color controlAccent(const PetTheme& theme) {
    const auto coloured = std::find_if_not(theme.title.begin(), theme.title.end(), isGrey);
    return coloured != theme.title.end() ? *coloured : theme.working;
}

} // namespace mimkins
