#include "Pet/WorkScenes.h"

namespace mimkins::scene {

void laptop(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void pencil(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void hammer(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void gear(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void bigButton(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void book(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void scroll(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void magnifier(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void binoculars(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void planes(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void megaphone(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void chin(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void pace(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void lightbulb(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void broom(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void vacuum(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void scratchHead(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void facepalm(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

void conductor(PetPainter& pet) {
    pet.standing(Legs::still, Eyes::look(pet.lookAround(), 0), Mouth::smile);
    pet.armDown(Side::left);
    pet.armDown(Side::right);
}

} // namespace mimkins::scene
