#pragma once

#include "Pet/PetPainter.h"

/// How pets pass the time. A phase is in seconds since the routine began, from 0 to 6.
namespace mimkins::scene {

enum class Aside { plain, waving };
enum class Posture { standing, sitting };

void lookAroundScene(PetPainter& pet);
void stepSideTo(PetPainter& pet, Aside aside);
void stretch(PetPainter& pet, double phase);
void whistle(PetPainter& pet, Posture posture);
void bubbleGum(PetPainter& pet, double phase);
void juggle(PetPainter& pet);
void sneeze(PetPainter& pet, double phase);
void kickPebble(PetPainter& pet, double phase);
void dance(PetPainter& pet);
void hello(PetPainter& pet);
void checkWatch(PetPainter& pet, double phase);
void yoyo(PetPainter& pet);
void skippingRope(PetPainter& pet);
void cartwheel(PetPainter& pet, double phase);
void hiccups(PetPainter& pet);

void ukulele(PetPainter& pet);
void meditate(PetPainter& pet);
void hulaHoop(PetPainter& pet);
void butterfly(PetPainter& pet);
void balloon(PetPainter& pet);
void skateboard(PetPainter& pet);
void peekaboo(PetPainter& pet);
void popcorn(PetPainter& pet);
/// Slides off the side, peeks in and ends with a greeting, all within `length` seconds.
void peekAround(PetPainter& pet, double phase, double length);

} // namespace mimkins::scene
