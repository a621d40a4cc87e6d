#pragma once

#include "Pet/PetFrame.h"
#include "Pet/Routine.h"
#include "Theme/PetTheme.h"

#include <QImage>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// One pet to be drawn, with nothing left open.
struct PetPicture {
    Pet pet;
    PetLook look;
    Date date;
    std::optional<Cue> routine; ///< this alone instead of what the action puts on stage
    const PetTheme* theme = nullptr;
    double pixels = 62; ///< side of the square
};

/// Draws a pet on a clear ground.
QImage petImage(const PetPicture& picture);

/// The commands that draw it, as JSON.
std::string petCommands(const PetPicture& picture);

/// A labelled grid of pets on the theme's own sky.
struct SheetCell {
    PetPicture picture;
    std::string label;
};

QImage sheetImage(const std::vector<SheetCell>& cells, int columns, bool labelled);

} // namespace mimkins
