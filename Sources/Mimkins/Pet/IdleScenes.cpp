#include "Pet/IdleScenes.h"

namespace mimkins::scene {

void ukulele(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void meditate(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void hulaHoop(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void butterfly(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void balloon(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void skateboard(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void peekaboo(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void popcorn(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void peekAround(PetPainter& pet, double, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

} // namespace mimkins::scene
