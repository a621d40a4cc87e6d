#pragma once

#include "Drawing/RasterCanvas.h"
#include "Pet/MiniHead.h"
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

/// The same on the sky of its theme.
QImage petOnSky(const PetPicture& picture);

/// A tiny head, enlarged to a square of so many pixels that has room for a halo.
QImage headImage(const MiniHead& head, const PetLook& look, double pixels);

/// A picture of a sheet, shown on the sky of a theme.
struct SheetCell {
    QImage image;
    const PetTheme* theme = nullptr;
    std::string label;
};

/// A labelled grid of pictures of one size; nothing for no cells.
QImage sheetImage(const std::vector<SheetCell>& cells, int columns, bool labelled);

/// The pixels of a picture of 32 bits a pixel, to be drawn into.
Bitmap bitmapOf(QImage& image);

/// Writes a picture into a file of the kind that its name ends in. Gives the exit code; a failure is told on
/// standard error.
int saveImage(const QImage& image, const std::string& file);

} // namespace mimkins
