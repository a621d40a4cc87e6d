#pragma once

#include <QIcon>
#include <QImage>

#include <string>

namespace mimkins {

/// The application's icon as a picture of that many pixels on a side.
QImage iconImage(int side);

/// The application's icon in the sizes that windows need.
QIcon applicationIcon();

/// Writes the icon into a PNG file. Gives the exit code.
int renderIcon(int side, const std::string& file);

} // namespace mimkins
