#pragma once

#include "Drawing/GraphicsContext.h"

#include <string>
#include <variant>
#include <vector>

namespace mimkins {

struct FillCommand {
    Path path;
    Shading shading;
    DrawingState state;
};

struct StrokeCommand {
    Path path;
    Shading shading;
    StrokeStyle style;
    DrawingState state;
};

struct TextCommand {
    std::string text;
    TextRun run; ///< all of it but the characters, which `text` holds
    Point center;
    DrawingState state;
};

using DrawCommand = std::variant<FillCommand, StrokeCommand, TextCommand>;

/// One command as a line of JSON, numbers with at most four decimals.
std::string toJson(const DrawCommand& command);

/// Keeps what is drawn as values.
class RecordingCanvas final : public Canvas {
public:
    void fill(const Path& path, const Shading& shading, const DrawingState& state) override;
    void stroke(const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state)
        override;
    void draw(const TextRun& text, Point center, const DrawingState& state) override;

    const std::vector<DrawCommand>& commands() const { return commands_; }

    /// Draws everything again elsewhere.
    void replay(Canvas& canvas) const;

    /// A JSON array, one command a line.
    std::string toJson() const;

    void clear() { commands_.clear(); }

private:
    std::vector<DrawCommand> commands_;
};

} // namespace mimkins
