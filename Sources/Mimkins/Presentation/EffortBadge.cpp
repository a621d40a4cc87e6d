#include "Presentation/EffortBadge.h"

namespace mimkins {

EffortBadge effortBadge(int boost) {
    if (boost == 2) {
        return {
            Symbol::bolt,
            "MAX",
            {Color::named(NamedColor::yellow), Color::named(NamedColor::orange)},
            "Running at max effort"};
    }
    return {Symbol::flame, "XHIGH", {{1, 0.55, 0.4}, {0.95, 0.3, 0.35}}, "Running at extra high effort"};
}

} // namespace mimkins
