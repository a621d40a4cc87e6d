#pragma once

#include "Drawing/GlyphOutlines.h"

#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace mimkins {

/// Shapes of texts from the installed fonts. Each text is looked up once and kept; there are few of them.
class QtGlyphOutlines final : public GlyphOutlines {
public:
    const Path& outline(const TextRun& text) override;

    /// The one that everything on the main thread shares.
    static QtGlyphOutlines& shared();

private:
    using Key = std::tuple<std::string, FontWeight, FontDesign>;
    using KeyView = std::tuple<std::string_view, FontWeight, FontDesign>;

    /// Finds a text without copying it.
    struct Order {
        using is_transparent = void;

        bool operator()(const KeyView& left, const KeyView& right) const { return left < right; }
    };

    std::map<Key, Path, Order> kept_;
};

} // namespace mimkins
