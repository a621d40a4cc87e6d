#include "Motion.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace mimkins::test {

namespace {

constexpr double side = 100;

void addElement(std::vector<Point>& points, const PathElement& element) {
    using Kind = PathElement::Kind;
    switch (element.kind) {
    case Kind::move:
    case Kind::line:
        points.push_back(element.a);
        break;
    case Kind::quad:
        points.insert(points.end(), {element.b, element.a});
        break;
    case Kind::cubic:
        points.insert(points.end(), {element.b, element.c, element.a});
        break;
    case Kind::close:
        break;
    case Kind::ellipse:
    case Kind::roundedRect:
        for (const double x : {0.0, element.b.x}) {
            for (const double y : {0.0, element.b.y}) {
                points.push_back({element.a.x + x, element.a.y + y});
            }
        }
        break;
    case Kind::arc:
        for (const double angle : {element.b.x, element.b.y}) {
            points.push_back(
                {element.a.x + element.c.x * std::cos(angle), element.a.y + element.c.x * std::sin(angle)}
            );
        }
        break;
    }
}

const DrawingState& stateOf(const DrawCommand& command) {
    return std::visit([](const auto& one) -> const DrawingState& { return one.state; }, command);
}

} // namespace

std::vector<DrawCommand> record(const Moment& moment) {
    PetFrame frame = petFrame({PetAction::idle, moment.seed, Date{}, moment.effort, false}, {}, Date{});
    frame.t = moment.t;
    frame.elapsed = moment.elapsed;
    Cue cue;
    cue.routine = moment.routine;
    cue.manner = moment.manner;
    if (takesPhase(moment.routine)) {
        cue.phase = moment.t;
    } else if (moment.routine == Routine::wallClock) {
        cue.phase = moment.elapsed / 60;
    }
    RecordingCanvas canvas;
    PetPainter(GraphicsContext(canvas), side, side, frame).perform(cue);
    return canvas.commands();
}

std::vector<DrawCommand> recordAction(const PetFrame& frame, PetAction action) {
    RecordingCanvas canvas;
    PetPainter(GraphicsContext(canvas), side, side, frame).draw(action);
    return canvas.commands();
}

std::vector<Point> positions(const DrawCommand& command) {
    std::vector<Point> points;
    if (const auto* text = std::get_if<TextCommand>(&command)) {
        points.push_back(text->center);
    } else {
        const Path& path = std::holds_alternative<FillCommand>(command)
                               ? std::get<FillCommand>(command).path
                               : std::get<StrokeCommand>(command).path;
        for (const PathElement& element : path.elements()) {
            addElement(points, element);
        }
    }
    const Transform& map = stateOf(command).transform;
    std::transform(points.begin(), points.end(), points.begin(), [&](Point point) {
        return map.apply(point);
    });
    return points;
}

double reach(const DrawCommand& command) {
    const auto* stroke = std::get_if<StrokeCommand>(&command);
    if (!stroke) {
        return 0;
    }
    const Transform& map = stroke->state.transform;
    return stroke->style.width / 2 * std::max(std::hypot(map.a, map.b), std::hypot(map.c, map.d));
}

bool haveSameShape(const DrawCommand& left, const DrawCommand& right) {
    return left.index() == right.index() && positions(left).size() == positions(right).size();
}

double distance(const DrawCommand& left, const DrawCommand& right) {
    const auto from = positions(left);
    const auto to = positions(right);
    double farthest = 0;
    for (std::size_t index = 0; index < std::min(from.size(), to.size()); ++index) {
        farthest = std::max(farthest, std::hypot(to[index].x - from[index].x, to[index].y - from[index].y));
    }
    return farthest;
}

} // namespace mimkins::test
