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

const Path* pathOf(const DrawCommand& command) {
    if (const auto* fill = std::get_if<FillCommand>(&command)) {
        return &fill->path;
    }
    const auto* stroke = std::get_if<StrokeCommand>(&command);
    return stroke ? &stroke->path : nullptr;
}

void addPositions(std::vector<Point>& points, const DrawCommand& command) {
    const std::size_t first = points.size();
    if (const Path* path = pathOf(command)) {
        for (const PathElement& element : path->elements()) {
            addElement(points, element);
        }
    } else {
        points.push_back(std::get<TextCommand>(command).center);
    }
    const Transform& map = stateOf(command).transform;
    for (std::size_t index = first; index < points.size(); ++index) {
        points[index] = map.apply(points[index]);
    }
}

void draw(Canvas& canvas, const Moment& moment) {
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
    PetPainter painter(GraphicsContext(canvas), side, side, frame);
    painter.thin = moment.thin;
    painter.perform(cue);
}

} // namespace

std::vector<DrawCommand> record(const Moment& moment) {
    RecordingCanvas canvas;
    draw(canvas, moment);
    return canvas.commands();
}

std::vector<Point> positions(const DrawCommand& command) {
    std::vector<Point> points;
    addPositions(points, command);
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

void Shot::take(const Moment& moment) {
    canvas_.clear();
    draw(canvas_, moment);
    locate();
}

void Shot::take(const PetFrame& frame, PetAction action) {
    canvas_.clear();
    PetPainter(GraphicsContext(canvas_), side, side, frame).draw(action);
    locate();
}

void Shot::locate() {
    points_.clear();
    ends_.clear();
    for (const DrawCommand& command : commands()) {
        addPositions(points_, command);
        ends_.push_back(points_.size());
    }
}

std::span<const Point> Shot::points(std::size_t command) const {
    const std::size_t first = command == 0 ? 0 : ends_[command - 1];
    return std::span(points_).subspan(first, ends_[command] - first);
}

bool haveSameShapes(const Shot& left, const Shot& right) {
    if (left.size() != right.size()) {
        return false;
    }
    for (std::size_t index = 0; index < left.size(); ++index) {
        if (left.commands()[index].index() != right.commands()[index].index() ||
            left.points(index).size() != right.points(index).size()) {
            return false;
        }
    }
    return true;
}

double distance(std::span<const Point> from, std::span<const Point> to) {
    double farthest = 0;
    for (std::size_t index = 0; index < std::min(from.size(), to.size()); ++index) {
        farthest = std::max(farthest, std::hypot(to[index].x - from[index].x, to[index].y - from[index].y));
    }
    return farthest;
}

double opacity(const DrawCommand& command) {
    return stateOf(command).opacity;
}

std::string inJson(const std::vector<DrawCommand>& commands) {
    std::string all;
    for (const DrawCommand& command : commands) {
        all += toJson(command) + '\n';
    }
    return all;
}

} // namespace mimkins::test
