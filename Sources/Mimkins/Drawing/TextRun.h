#pragma once

#include "Drawing/Color.h"

#include <cstdint>
#include <string_view>

namespace mimkins {

enum class FontDesign : std::uint8_t { standard, rounded, serif, monospaced };
enum class FontWeight : std::uint8_t { regular, semibold, bold, heavy, black };

/// A short text in one font and colour. The characters belong to someone else and have to outlive the
/// drawing.
struct TextRun {
    std::string_view text; ///< UTF-8
    double size = 12;      ///< of the font, in the units of the context
    FontWeight weight = FontWeight::regular;
    FontDesign design = FontDesign::standard;
    Color color;
};

} // namespace mimkins
