#include "Drawing/Geometry.h"

#include <algorithm>

namespace mimkins {

std::vector<Rect> subtract(const Rect& from, const Rect& cut) {
    const double left = std::max(from.x, cut.x);
    const double right = std::min(from.maxX(), cut.maxX());
    const double low = std::max(from.y, cut.y);
    const double high = std::min(from.maxY(), cut.maxY());
    if (left >= right || low >= high) {
        return {from};
    }
    std::vector<Rect> rest;
    const auto keep = [&rest](const Rect& piece) {
        if (!piece.isEmpty()) {
            rest.push_back(piece);
        }
    };
    keep({from.x, from.y, from.width, low - from.y});
    keep({from.x, high, from.width, from.maxY() - high});
    keep({from.x, low, left - from.x, high - low});
    keep({right, low, from.maxX() - right, high - low});
    return rest;
}

bool isCovered(const Rect& rectangle, const std::vector<Rect>& covers) {
    std::vector<Rect> visible;
    if (!rectangle.isEmpty()) {
        visible.push_back(rectangle);
    }
    for (const auto& cover : covers) {
        std::vector<Rect> rest;
        for (const auto& piece : visible) {
            const auto pieces = subtract(piece, cover);
            rest.insert(rest.end(), pieces.begin(), pieces.end());
        }
        visible = std::move(rest);
    }
    return visible.empty();
}

} // namespace mimkins
