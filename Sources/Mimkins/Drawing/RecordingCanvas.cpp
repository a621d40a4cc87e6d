#include "Drawing/RecordingCanvas.h"

namespace mimkins {

void RecordingCanvas::fill(const Path& path, const Shading& shading, const DrawingState& state) {
    commands_.emplace_back(FillCommand{path, shading, state});
}

void RecordingCanvas::stroke(
    const Path& path, const Shading& shading, const StrokeStyle& style, const DrawingState& state
) {
    commands_.emplace_back(StrokeCommand{path, shading, style, state});
}

void RecordingCanvas::draw(const TextRun& text, Point center, const DrawingState& state) {
    TextRun run = text;
    run.text = {};
    commands_.emplace_back(TextCommand{std::string(text.text), run, center, state});
}

void RecordingCanvas::replay(Canvas& canvas) const {
    for (const DrawCommand& command : commands_) {
        if (const auto* fill = std::get_if<FillCommand>(&command)) {
            canvas.fill(fill->path, fill->shading, fill->state);
        } else if (const auto* stroke = std::get_if<StrokeCommand>(&command)) {
            canvas.stroke(stroke->path, stroke->shading, stroke->style, stroke->state);
        } else if (const auto* text = std::get_if<TextCommand>(&command)) {
            TextRun run = text->run;
            run.text = text->text;
            canvas.draw(run, text->center, text->state);
        }
    }
}

std::string RecordingCanvas::toJson() const {
    std::string json = "[";
    for (const DrawCommand& command : commands_) {
        json += json.size() > 1 ? ",\n" : "\n";
        json += mimkins::toJson(command);
    }
    return json + "\n]\n";
}

} // namespace mimkins
