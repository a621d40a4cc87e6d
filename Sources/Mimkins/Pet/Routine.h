#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace mimkins {

/// Everything that a pet can be seen doing, and what can stand around it.
enum class Routine : std::uint8_t {
    // Work.
    laptop,
    pencil,
    hammer,
    gear,
    bigButton,
    book,
    scroll,
    magnifier,
    binoculars,
    planes,
    megaphone,
    chin,
    pace,
    thoughtDots,
    lightbulb,
    broom,
    vacuum,
    scratchHead,
    facepalm,
    conductor,
    // Waiting for a person.
    bothArmsWave,
    impatient,
    jumpWave,
    handUp,
    planSign,
    presentParcel,
    bubble,
    wallClock,
    waitingWithHourglass,
    pointAtClock,
    cobweb,
    skeleton,
    dustPile,
    // The person's turn.
    celebrate,
    holdingEnvelope,
    readingLetter,
    yawnSitting,
    // Out of play.
    supervisor,
    fishing,
    hourglass,
    parachute,
    sleep,
    snore,
    beach,
    hotTub,
    partyDance,
    // Idle.
    lookAroundScene,
    stepSideTo,
    stretch,
    whistle,
    bubbleGum,
    juggle,
    sneeze,
    kickPebble,
    dance,
    hello,
    checkWatch,
    yoyo,
    skippingRope,
    cartwheel,
    hiccups,
    ukulele,
    meditate,
    hulaHoop,
    butterfly,
    balloon,
    skateboard,
    peekaboo,
    popcorn,
    peekAround,
    boredThenButterfly,
    // Breaks and tricks.
    wipeBrow,
    coffee,
    flyingKick,
    karateChop,
    punches,
    guruHover,
    powerAura,
    headband,
};

inline constexpr std::size_t routineCount = static_cast<std::size_t>(Routine::headband) + 1;

std::string_view name(Routine routine);

/// Nothing for a name that no routine has.
std::optional<Routine> routineNamed(std::string_view name);

enum class Bubble : std::uint8_t {
    question,   ///< a pink "?"
    exclamation ///< an orange "!"
};

/// One routine on stage, with all that it is told.
struct Cue {
    Routine routine = Routine::lookAroundScene;
    std::optional<double>
        phase; ///< seconds into a routine that has a beginning; minutes for clocks and the beach
    /// Whether the sign walks, the side step waves, the whistler or the coffee drinker sits.
    std::optional<bool> manner;
    std::optional<double> length; ///< of the peek around the edge, seconds
    Bubble bubble = Bubble::exclamation;

    friend bool operator==(const Cue&, const Cue&) = default;
};

} // namespace mimkins
