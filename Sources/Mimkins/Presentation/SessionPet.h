#pragma once

#include "Pet/PetFrame.h"
#include "Session/Facts.h"
#include "Session/Session.h"
#include "Settings/AppSettings.h"
#include "Theme/PetTheme.h"

namespace mimkins {

/// What a session's pet acts out.
PetAction petAction(const Session& session);

/// True if a person holds the session up, and its pet shows it.
bool waitsOnKeeper(Mood mood);

/// The pet of a session's card.
Pet sessionPet(const Session& session);

/// How hard a subtask's model is told to think, from 0 to 2.
int effortBoost(const ModelTag& model);

/// The pet of a subtask's row.
Pet subtaskPet(const Subtask& task);

/// How the pets look that a theme shows, moving as the settings say.
PetLook petLook(const PetTheme& theme, const PetMotion& motion);

} // namespace mimkins
