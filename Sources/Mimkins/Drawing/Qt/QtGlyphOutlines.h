#pragma once

#include "Drawing/GlyphOutlines.h"

#include <map>
#include <string>
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

    std::map<Key, Path, std::less<>> kept_;
};

} // namespace mimkins
