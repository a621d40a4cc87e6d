#pragma once

#include "Pet/IdleScenes.h"

/// Short breaks from work, and what pets of high effort show off with.
namespace mimkins::scene {

void wipeBrow(PetPainter& pet, double phase);
void coffee(PetPainter& pet, Posture posture);
/// 2.2 seconds from the crouch to the landing.
void flyingKick(PetPainter& pet, double phase);
/// 3 seconds; the board breaks at 1.3.
void karateChop(PetPainter& pet, double phase);
void punches(PetPainter& pet);
void guruHover(PetPainter& pet);
/// 9 seconds.
void boredThenButterfly(PetPainter& pet, double phase);

} // namespace mimkins::scene
