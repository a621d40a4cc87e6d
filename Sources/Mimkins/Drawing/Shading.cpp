#include "Drawing/Shading.h"

#include <algorithm>

namespace mimkins {

Gradient::Gradient(std::span<const Color> colors) : count_(std::min(colors.size(), most)) {
    std::copy_n(colors.begin(), count_, colors_.begin());
}

} // namespace mimkins
