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
    {2.0, false},  // laptop
    {2.9, false},  // pencil
    {0.36, false}, // hammer
    {2.35, false}, // gear
    {0.88, false}, // bigButton
    {1.98, false}, // book
    {3.4, false},  // scroll
    {3.5, false},  // magnifier
    {2.2, false},  // binoculars
    {1.0, false},  // planes
    {0.3, false},  // megaphone
    {1.7, false},  // chin
    {0.4, false},  // pace
    {2.0, false},  // thoughtDots
    {10.6, false}, // lightbulb
    {1.05, false}, // broom
    {1.6, false},  // vacuum
    {0.42, false}, // scratchHead
    {1.4, false},  // facepalm
    {0.7, false},  // conductor
    {2.0, false},  // bothArmsWave
    {2.0, false},  // impatient
    {2.0, false},  // jumpWave
    {2.0, false},  // handUp
    {2.0, false},  // planSign
    {2.0, false},  // presentParcel
    {2.0, false},  // bubble
    {2.0, false},  // wallClock
    {2.0, false},  // waitingWithHourglass
    {2.0, false},  // pointAtClock
    {2.0, false},  // cobweb
    {2.0, false},  // skeleton
    {2.0, false},  // dustPile
    {2.0, false},  // celebrate
    {2.0, false},  // holdingEnvelope
    {2.0, false},  // readingLetter
    {2.0, false},  // yawnSitting
    {2.0, false},  // supervisor
    {2.0, false},  // fishing
    {2.0, false},  // hourglass
    {2.0, true},   // parachute
    {2.0, false},  // sleep
    {2.0, false},  // snore
    {2.0, false},  // beach
    {2.0, false},  // hotTub
    {2.0, false},  // partyDance
    {2.0, false},  // lookAroundScene
    {2.0, false},  // stepSideTo
    {2.0, true},   // stretch
    {2.0, false},  // whistle
    {2.0, true},   // bubbleGum
    {2.0, false},  // juggle
    {2.0, true},   // sneeze
    {2.0, true},   // kickPebble
    {2.0, false},  // dance
    {2.0, false},  // hello
    {2.0, true},   // checkWatch
    {2.0, false},  // yoyo
    {2.0, false},  // skippingRope
    {2.0, true},   // cartwheel
    {2.0, false},  // hiccups
    {2.0, false},  // ukulele
    {2.0, false},  // meditate
    {2.0, false},  // hulaHoop
    {2.0, false},  // butterfly
    {2.0, false},  // balloon
    {2.0, false},  // skateboard
    {2.0, false},  // peekaboo
    {2.0, false},  // popcorn
    {2.0, true},   // peekAround
    {2.0, true},   // boredThenButterfly
    {2.0, true},   // wipeBrow
    {2.0, false},  // coffee
    {2.0, true},   // flyingKick
    {2.0, true},   // karateChop
    {2.0, false},  // punches
    {2.0, false},  // guruHover
    {2.0, false},  // powerAura
    {2.0, false},  // headband
}};

} // namespace

double posterTime(Routine routine) {
    return posters[static_cast<std::size_t>(routine)].time;
}

bool takesPhase(Routine routine) {
    return posters[static_cast<std::size_t>(routine)].phase;
}

} // namespace mimkins
