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
    {1.7, false},  // thoughtDots
    {10.6, false}, // lightbulb
    {1.05, false}, // broom
    {1.6, false},  // vacuum
    {0.42, false}, // scratchHead
    {1.4, false},  // facepalm
    {0.7, false},  // conductor
    {1.1, false},  // bothArmsWave
    {0.3, false},  // impatient
    {0.6, false},  // jumpWave
    {1.5, false},  // handUp
    {4.6, false},  // planSign
    {1.0, false},  // presentParcel
    {2.0, false},  // bubble
    {2.0, false},  // wallClock
    {3.0, false},  // waitingWithHourglass
    {2.5, false},  // pointAtClock
    {2.0, false},  // cobweb
    {2.3, false},  // skeleton
    {0.5, false},  // dustPile
    {0.5, false},  // celebrate
    {2.5, false},  // holdingEnvelope
    {5.3, false},  // readingLetter
    {2.6, false},  // yawnSitting
    {1.7, false},  // supervisor
    {4.6, false},  // fishing
    {2.6, false},  // hourglass
    {2.75, true},  // parachute
    {1.0, false},  // sleep
    {3.6, false},  // snore
    {2.0, false},  // beach
    {2.0, false},  // hotTub
    {0.7, false},  // partyDance
    {3.2, false},  // lookAroundScene
    {2.3, false},  // stepSideTo
    {2.3, true},   // stretch
    {3.4, false},  // whistle
    {3.6, true},   // bubbleGum
    {0.4, false},  // juggle
    {3.0, true},   // sneeze
    {1.6, true},   // kickPebble
    {0.5, false},  // dance
    {1.2, false},  // hello
    {2.5, true},   // checkWatch
    {0.9, false},  // yoyo
    {0.1, false},  // skippingRope
    {2.4, true},   // cartwheel
    {0.3, false},  // hiccups
    {0.6, false},  // ukulele
    {1.3, false},  // meditate
    {0.1, false},  // hulaHoop
    {1.2, false},  // butterfly
    {2.2, false},  // balloon
    {0.6, false},  // skateboard
    {2.2, false},  // peekaboo
    {0.75, false}, // popcorn
    {3.2, true},   // peekAround
    {4.5, true},   // boredThenButterfly
    {0.6, true},   // wipeBrow
    {0.6, false},  // coffee
    {1.2, true},   // flyingKick
    {1.6, true},   // karateChop
    {0.14, false}, // punches
    {0.5, false},  // guruHover
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
