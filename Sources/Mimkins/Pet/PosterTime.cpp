#include "Pet/PosterTime.h"

#include <array>

namespace mimkins {

namespace {

struct Poster {
    double time = 0;
    bool phase = false;
};

/// In the order of `Routine`.
constexpr std::array<Poster, routineCount> posters{{
    {2.0, false}, // laptop
    {2.0, false}, // pencil
    {2.0, false}, // hammer
    {2.0, false}, // gear
    {2.0, false}, // bigButton
    {2.0, false}, // book
    {2.0, false}, // scroll
    {2.0, false}, // magnifier
    {2.0, false}, // binoculars
    {2.0, false}, // planes
    {2.0, false}, // megaphone
    {2.0, false}, // chin
    {2.0, false}, // pace
    {2.0, false}, // thoughtDots
    {2.0, false}, // lightbulb
    {2.0, false}, // broom
    {2.0, false}, // vacuum
    {2.0, false}, // scratchHead
    {2.0, false}, // facepalm
    {2.0, false}, // conductor
    {2.0, false}, // bothArmsWave
    {2.0, false}, // impatient
    {2.0, false}, // jumpWave
    {2.0, false}, // handUp
    {2.0, false}, // planSign
    {2.0, false}, // presentParcel
    {2.0, false}, // bubble
    {2.0, false}, // wallClock
    {2.0, false}, // waitingWithHourglass
    {2.0, false}, // pointAtClock
    {2.0, false}, // cobweb
    {2.0, false}, // skeleton
    {2.0, false}, // dustPile
    {2.0, false}, // celebrate
    {2.0, false}, // holdingEnvelope
    {2.0, false}, // readingLetter
    {2.0, false}, // yawnSitting
    {2.0, false}, // supervisor
    {2.0, false}, // fishing
    {2.0, false}, // hourglass
    {2.0, true},  // parachute
    {2.0, false}, // sleep
    {2.0, false}, // snore
    {2.0, false}, // beach
    {2.0, false}, // hotTub
    {2.0, false}, // partyDance
    {3.2, false}, // lookAroundScene
    {2.3, false}, // stepSideTo
    {2.3, true},  // stretch
    {3.4, false}, // whistle
    {3.6, true},  // bubbleGum
    {0.4, false}, // juggle
    {3.0, true},  // sneeze
    {1.6, true},  // kickPebble
    {0.5, false}, // dance
    {1.2, false}, // hello
    {2.5, true},  // checkWatch
    {0.9, false}, // yoyo
    {0.1, false}, // skippingRope
    {2.4, true},  // cartwheel
    {0.3, false}, // hiccups
    {2.0, false}, // ukulele
    {2.0, false}, // meditate
    {2.0, false}, // hulaHoop
    {2.0, false}, // butterfly
    {2.0, false}, // balloon
    {2.0, false}, // skateboard
    {2.0, false}, // peekaboo
    {2.0, false}, // popcorn
    {2.0, true},  // peekAround
    {2.0, true},  // boredThenButterfly
    {2.0, true},  // wipeBrow
    {2.0, false}, // coffee
    {2.0, true},  // flyingKick
    {2.0, true},  // karateChop
    {2.0, false}, // punches
    {2.0, false}, // guruHover
    {2.0, false}, // powerAura
    {2.0, false}, // headband
}};

} // namespace

double posterTime(Routine routine) {
    return posters[static_cast<std::size_t>(routine)].time;
}

bool takesPhase(Routine routine) {
    return posters[static_cast<std::size_t>(routine)].phase;
}

} // namespace mimkins
