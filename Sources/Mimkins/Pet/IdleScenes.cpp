#include "Pet/IdleScenes.h"

namespace mimkins::scene {

void lookAroundScene(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void stepSideTo(PetPainter& pet, Aside) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void stretch(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void whistle(PetPainter& pet, Posture) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void bubbleGum(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void juggle(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void sneeze(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void kickPebble(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void dance(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void hello(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void checkWatch(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void yoyo(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void skippingRope(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void cartwheel(PetPainter& pet, double) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void hiccups(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

} // namespace mimkins::scene
