#pragma once

#include "Pet/Stage.h"

namespace mimkins {

/// Adds the scene of an action, work breaks included.
void addScene(Stage& stage, const PetFrame& frame, PetAction action);

/// Adds what a pet does whose turn is over: it celebrates, then passes the time, then goes to rest.
void addYourTurnRoutine(Stage& stage, const PetFrame& frame);

/// Adds what a pet does that calls for a person, with its bubble.
void addWaitingRoutine(Stage& stage, const PetFrame& frame);

/// Adds the idle routine of the moment.
void addIdleRoutine(Stage& stage, const PetFrame& frame, std::uint64_t salt);

/// Adds the hot tub or the beach, whichever this slot of forty seconds has.
void addLeisure(Stage& stage, const PetFrame& frame);

} // namespace mimkins
