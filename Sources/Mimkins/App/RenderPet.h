#pragma once

#include "App/RenderOptions.h"

namespace mimkins {

/// Draws one pet, or prints how it is drawn or what is on stage. Gives the exit code.
int renderPet(const PetRenderOptions& options);

/// Draws a labelled grid of pets.
int renderSheet(const PetRenderOptions& options);

/// Draws a strip of frames, or a moving picture into a GIF file.
int renderFilm(const PetRenderOptions& options);

} // namespace mimkins
