#pragma once

#include "Pet/PetPainter.h"

/// What pets do that wait for a person.
namespace mimkins::scene {

void bothArmsWave(PetPainter& pet);
void impatient(PetPainter& pet);
void jumpWave(PetPainter& pet);
void handUp(PetPainter& pet);

enum class Sign { standing, walking };

void planSign(PetPainter& pet, Sign sign);
void presentParcel(PetPainter& pet);

// The long wait.
void wallClock(PetPainter& pet, double minutesWaited);
void waitingWithHourglass(PetPainter& pet);
void pointAtClock(PetPainter& pet);
void cobweb(PetPainter& pet);
void skeleton(PetPainter& pet);
void dustPile(PetPainter& pet);

// The person's turn.
void celebrate(PetPainter& pet);
void holdingEnvelope(PetPainter& pet);
void readingLetter(PetPainter& pet);
void yawnSitting(PetPainter& pet);

} // namespace mimkins::scene
