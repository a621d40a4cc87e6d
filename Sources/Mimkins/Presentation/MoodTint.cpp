#include "Presentation/MoodTint.h"

namespace mimkins {

const Color& tint(const PetTheme& theme, Mood mood) {
    switch (mood) {
    case Mood::working:
    case Mood::compacting:
    case Mood::background:
        return theme.working;
    case Mood::needsPermission:
    case Mood::needsInput:
    case Mood::commitWaiting:
        return theme.waiting;
    case Mood::question:
    case Mood::plan:
        return theme.question;
    case Mood::yourTurn:
        return theme.yourTurn;
    case Mood::snag:
        return theme.snag;
    case Mood::stuck:
    case Mood::idle:
    case Mood::done:
        break;
    }
    return theme.quiet;
}

} // namespace mimkins
