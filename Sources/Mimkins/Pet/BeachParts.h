#pragma once

#include "Pet/PetPainter.h"

#include <optional>

/// What lies about on the beach.
namespace mimkins::seaside {

/// How far the stay has come: everything from 0 at its start to 1.
struct Stay {
    double evening = 0.12; ///< from a high sun to one half in the sea
    double tan = 0;
    double walls = 1;  ///< of the sand castle
    double towers = 1; ///< on the walls
    double flag = 1;   ///< on the towers
    double steps = 1;  ///< of the trail in the sand
    bool dust = false; ///< nothing else is left of the pet
};

/// Without minutes it is always the same fine morning.
Stay stay(std::optional<double> minutesOut);

// From the back to the front.

void sun(const PetPainter& pet, double evening);
void gull(const PetPainter& pet);
void sea(const PetPainter& pet, double evening);
void boat(const PetPainter& pet);
void sand(const PetPainter& pet, double evening);
void parasol(const PetPainter& pet);
void deckChair(const PetPainter& pet);
void castle(const PetPainter& pet, const Stay& stay);
void footprints(const PetPainter& pet, double steps);
void beachBall(const PetPainter& pet);
void drink(const PetPainter& pet, Point hand);
/// Scuttles along the water's edge, and waves its claws half-way.
void crab(const PetPainter& pet);

} // namespace mimkins::seaside
