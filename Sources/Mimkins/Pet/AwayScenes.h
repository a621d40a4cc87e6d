#pragma once

#include "Pet/PetPainter.h"

#include <optional>

/// What pets do that are out of play.
namespace mimkins::scene {

void supervisor(PetPainter& pet);
void fishing(PetPainter& pet);
void hourglass(PetPainter& pet);
/// Lands within 4.5 seconds when told how many of them have passed; else it hangs in the air.
void parachute(PetPainter& pet, std::optional<double> landingAt);
void sleep(PetPainter& pet);
void snore(PetPainter& pet);
/// With the minutes that the pet has been out, or without a sign of time.
void beach(PetPainter& pet, std::optional<double> minutesOut);
void hotTub(PetPainter& pet);
void partyDance(PetPainter& pet);

} // namespace mimkins::scene
