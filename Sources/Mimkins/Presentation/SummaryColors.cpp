#include "Presentation/SummaryColors.h"

namespace mimkins {

Color summaryInk(const PetTheme& theme, SummaryKind kind) {
    return kind == SummaryKind::pets ? theme.subtext : Color::black(0.8);
}

Color summaryFill(const PetTheme& theme, SummaryKind kind) {
    switch (kind) {
    case SummaryKind::waiting:
        return theme.waiting;
    case SummaryKind::replies:
        return theme.yourTurn;
    case SummaryKind::pets:
        break;
    }
    return theme.text.faded(0.08);
}

} // namespace mimkins
