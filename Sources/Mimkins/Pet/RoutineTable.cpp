#include "Pet/AwayScenes.h"
#include "Pet/PetPainter.h"
#include "Pet/Routine.h"
#include "Pet/TrickScenes.h"
#include "Pet/WaitingScenes.h"
#include "Pet/WorkScenes.h"

#include <algorithm>
#include <array>

namespace mimkins {

namespace {

using Perform = void (*)(PetPainter& pet, const Cue& cue);

template <void (*Scene)(PetPainter&)>
void plain(PetPainter& pet, const Cue&) {
    Scene(pet);
}

template <void (*Scene)(PetPainter&, double)>
void timed(PetPainter& pet, const Cue& cue) {
    Scene(pet, cue.phase.value_or(0));
}

template <void (PetPainter::*Thing)() const>
void thing(PetPainter& pet, const Cue&) {
    (pet.*Thing)();
}

void planSign(PetPainter& pet, const Cue& cue) {
    scene::planSign(pet, cue.manner.value_or(false) ? scene::Sign::walking : scene::Sign::standing);
}

void stepSideTo(PetPainter& pet, const Cue& cue) {
    scene::stepSideTo(pet, cue.manner.value_or(false) ? scene::Aside::waving : scene::Aside::plain);
}

scene::Posture posture(const Cue& cue) {
    return cue.manner.value_or(false) ? scene::Posture::sitting : scene::Posture::standing;
}

void whistle(PetPainter& pet, const Cue& cue) {
    scene::whistle(pet, posture(cue));
}

void coffee(PetPainter& pet, const Cue& cue) {
    scene::coffee(pet, posture(cue));
}

void parachute(PetPainter& pet, const Cue& cue) {
    scene::parachute(pet, cue.phase);
}

void beach(PetPainter& pet, const Cue& cue) {
    scene::beach(pet, cue.phase);
}

void peekAround(PetPainter& pet, const Cue& cue) {
    scene::peekAround(pet, cue.phase.value_or(0), cue.length.value_or(6));
}

void bubble(PetPainter& pet, const Cue& cue) {
    if (cue.bubble == Bubble::question) {
        pet.bubble("?", Color::named(NamedColor::pink), Pulse::beating);
    } else {
        pet.bubble("!", Color::named(NamedColor::orange), Pulse::beating);
    }
}

struct Entry {
    std::string_view name;
    Perform perform;
};

/// In the order of `Routine`.
constexpr std::array<Entry, routineCount> table{{
    {"laptop", plain<scene::laptop>},
    {"pencil", plain<scene::pencil>},
    {"hammer", plain<scene::hammer>},
    {"gear", plain<scene::gear>},
    {"bigButton", plain<scene::bigButton>},
    {"book", plain<scene::book>},
    {"scroll", plain<scene::scroll>},
    {"magnifier", plain<scene::magnifier>},
    {"binoculars", plain<scene::binoculars>},
    {"planes", plain<scene::planes>},
    {"megaphone", plain<scene::megaphone>},
    {"chin", plain<scene::chin>},
    {"pace", plain<scene::pace>},
    {"thoughtDots", thing<&PetPainter::thoughtDots>},
    {"lightbulb", plain<scene::lightbulb>},
    {"broom", plain<scene::broom>},
    {"vacuum", plain<scene::vacuum>},
    {"scratchHead", plain<scene::scratchHead>},
    {"facepalm", plain<scene::facepalm>},
    {"conductor", plain<scene::conductor>},
    {"bothArmsWave", plain<scene::bothArmsWave>},
    {"impatient", plain<scene::impatient>},
    {"jumpWave", plain<scene::jumpWave>},
    {"handUp", plain<scene::handUp>},
    {"planSign", planSign},
    {"presentParcel", plain<scene::presentParcel>},
    {"bubble", bubble},
    {"wallClock", timed<scene::wallClock>},
    {"waitingWithHourglass", plain<scene::waitingWithHourglass>},
    {"pointAtClock", plain<scene::pointAtClock>},
    {"cobweb", plain<scene::cobweb>},
    {"skeleton", plain<scene::skeleton>},
    {"dustPile", plain<scene::dustPile>},
    {"celebrate", plain<scene::celebrate>},
    {"holdingEnvelope", plain<scene::holdingEnvelope>},
    {"readingLetter", plain<scene::readingLetter>},
    {"yawnSitting", plain<scene::yawnSitting>},
    {"supervisor", plain<scene::supervisor>},
    {"fishing", plain<scene::fishing>},
    {"hourglass", plain<scene::hourglass>},
    {"parachute", parachute},
    {"sleep", plain<scene::sleep>},
    {"snore", plain<scene::snore>},
    {"beach", beach},
    {"hotTub", plain<scene::hotTub>},
    {"partyDance", plain<scene::partyDance>},
    {"lookAroundScene", plain<scene::lookAroundScene>},
    {"stepSideTo", stepSideTo},
    {"stretch", timed<scene::stretch>},
    {"whistle", whistle},
    {"bubbleGum", timed<scene::bubbleGum>},
    {"juggle", plain<scene::juggle>},
    {"sneeze", timed<scene::sneeze>},
    {"kickPebble", timed<scene::kickPebble>},
    {"dance", plain<scene::dance>},
    {"hello", plain<scene::hello>},
    {"checkWatch", timed<scene::checkWatch>},
    {"yoyo", plain<scene::yoyo>},
    {"skippingRope", plain<scene::skippingRope>},
    {"cartwheel", timed<scene::cartwheel>},
    {"hiccups", plain<scene::hiccups>},
    {"ukulele", plain<scene::ukulele>},
    {"meditate", plain<scene::meditate>},
    {"hulaHoop", plain<scene::hulaHoop>},
    {"butterfly", plain<scene::butterfly>},
    {"balloon", plain<scene::balloon>},
    {"skateboard", plain<scene::skateboard>},
    {"peekaboo", plain<scene::peekaboo>},
    {"popcorn", plain<scene::popcorn>},
    {"peekAround", peekAround},
    {"boredThenButterfly", timed<scene::boredThenButterfly>},
    {"wipeBrow", timed<scene::wipeBrow>},
    {"coffee", coffee},
    {"flyingKick", timed<scene::flyingKick>},
    {"karateChop", timed<scene::karateChop>},
    {"punches", plain<scene::punches>},
    {"guruHover", plain<scene::guruHover>},
    {"powerAura", thing<&PetPainter::powerAura>},
    {"headband", thing<&PetPainter::headband>},
}};

} // namespace

std::string_view name(Routine routine) {
    return table[static_cast<std::size_t>(routine)].name;
}

std::optional<Routine> routineNamed(std::string_view name) {
    const auto found =
        std::find_if(table.begin(), table.end(), [name](const Entry& entry) { return entry.name == name; });
    if (found == table.end()) {
        return std::nullopt;
    }
    return static_cast<Routine>(found - table.begin());
}

void PetPainter::perform(const Cue& cue) {
    table[static_cast<std::size_t>(cue.routine)].perform(*this, cue);
}

} // namespace mimkins
