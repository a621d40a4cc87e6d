#include "Pet/AwayScenes.h"

namespace mimkins::scene {

void supervisor(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void fishing(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void hourglass(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void parachute(PetPainter& pet, std::optional<double>) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void sleep(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void snore(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void beach(PetPainter& pet, std::optional<double>) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void hotTub(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void partyDance(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

} // namespace mimkins::scene
