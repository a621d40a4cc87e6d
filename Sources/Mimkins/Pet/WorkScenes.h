#pragma once

#include "Pet/PetPainter.h"

/// What pets do while their agent works.
namespace mimkins::scene {

void laptop(PetPainter& pet);
void pencil(PetPainter& pet);
void hammer(PetPainter& pet);
void gear(PetPainter& pet);
void bigButton(PetPainter& pet);
void book(PetPainter& pet);
void scroll(PetPainter& pet);
void magnifier(PetPainter& pet);
void binoculars(PetPainter& pet);
void planes(PetPainter& pet);
void megaphone(PetPainter& pet);
void chin(PetPainter& pet);
void pace(PetPainter& pet);
void lightbulb(PetPainter& pet);
void broom(PetPainter& pet);
void vacuum(PetPainter& pet);
void scratchHead(PetPainter& pet);
void facepalm(PetPainter& pet);
void conductor(PetPainter& pet);

} // namespace mimkins::scene
