#include "Pet/TrickScenes.h"

namespace mimkins::scene {

void wipeBrow(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void coffee(PetPainter& pet, Posture) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void flyingKick(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void karateChop(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void punches(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void guruHover(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void boredThenButterfly(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

} // namespace mimkins::scene
