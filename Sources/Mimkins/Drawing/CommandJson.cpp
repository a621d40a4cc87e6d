#include "Drawing/RecordingCanvas.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

namespace mimkins {

namespace {

using Kind = PathElement::Kind;

/// Four decimals, without trailing noughts or a minus before nought.
std::string number(double value) {
    std::array<char, 400> text{};
    const double rounded = std::round(value * 1e4) / 1e4;
    const int length = std::snprintf(text.data(), text.size(), "%.4f", rounded == 0 ? 0.0 : rounded);
    std::string_view digits(text.data(), static_cast<std::size_t>(length));
    if (digits.find('.') != std::string_view::npos) {
        digits = digits.substr(0, digits.find_last_not_of('0') + 1);
        digits = digits.substr(0, digits.size() - (digits.back() == '.' ? 1 : 0));
    }
    return std::string(digits);
}

std::string numbers(std::initializer_list<double> values) {
    std::string text = "[";
    for (const double value : values) {
        text += (text.size() > 1 ? "," : "") + number(value);
    }
    return text + "]";
}

std::string quoted(std::string_view text) {
    std::string json = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') {
            json += '\\';
        }
        json += character;
    }
    return json + "\"";
}

constexpr std::array<std::string_view, 13> colorNames{"",       "primary", "secondary", "blue", "green",
                                                      "yellow", "orange",  "pink",      "red",  "gray",
                                                      "cyan",   "mint",    "purple"};

std::string colorText(const Color& color) {
    if (color.name != NamedColor::none) {
        return "{\"name\":" + quoted(colorNames[static_cast<std::size_t>(color.name)]) +
               ",\"opacity\":" + number(color.opacity) + "}";
    }
    return numbers({color.red, color.green, color.blue, color.opacity});
}

std::string gradientText(const Gradient& gradient) {
    std::string text = "[";
    for (const Color& color : gradient.colors()) {
        text += (text.size() > 1 ? "," : "") + colorText(color);
    }
    return text + "]";
}

struct ShadingText {
    std::string operator()(const Color& color) const { return colorText(color); }

    std::string operator()(const LinearGradient& linear) const {
        return "{\"linear\":" + gradientText(linear.gradient) +
               ",\"from\":" + numbers({linear.start.x, linear.start.y}) +
               ",\"to\":" + numbers({linear.end.x, linear.end.y}) + "}";
    }

    std::string operator()(const RadialGradient& radial) const {
        return "{\"radial\":" + gradientText(radial.gradient) +
               ",\"center\":" + numbers({radial.center.x, radial.center.y}) +
               ",\"radii\":" + numbers({radial.startRadius, radial.endRadius}) + "}";
    }

    std::string operator()(const AngularGradient& angular) const {
        return "{\"angular\":" + gradientText(angular.gradient) +
               ",\"center\":" + numbers({angular.center.x, angular.center.y}) +
               ",\"angle\":" + number(angular.angle) + "}";
    }
};

std::string elementText(const PathElement& element) {
    const auto& [kind, corners, direction, a, b, c] = element;
    switch (kind) {
    case Kind::move:
        return "[\"move\"," + number(a.x) + "," + number(a.y) + "]";
    case Kind::line:
        return "[\"line\"," + number(a.x) + "," + number(a.y) + "]";
    case Kind::quad:
        return "[\"quad\"," + numbers({b.x, b.y, a.x, a.y}).substr(1);
    case Kind::cubic:
        return "[\"cubic\"," + numbers({b.x, b.y, c.x, c.y, a.x, a.y}).substr(1);
    case Kind::close:
        return "[\"close\"]";
    case Kind::ellipse:
        return "[\"ellipse\"," + numbers({a.x, a.y, b.x, b.y}).substr(1);
    case Kind::roundedRect:
        return std::string(corners == CornerStyle::continuous ? "[\"continuous\"," : "[\"rounded\",") +
               numbers({a.x, a.y, b.x, b.y, c.x}).substr(1);
    case Kind::arc:
        return std::string(direction == ArcDirection::clockwise ? "[\"arc\"," : "[\"arcBack\",") +
               numbers({a.x, a.y, c.x, b.x, b.y}).substr(1);
    }
    return "[]";
}

std::string pathText(const Path& path) {
    std::string text = "[";
    for (const PathElement& element : path.elements()) {
        text += (text.size() > 1 ? "," : "") + elementText(element);
    }
    return text + "]";
}

std::string stateText(const DrawingState& state) {
    const Transform& map = state.transform;
    std::string text = ",\"transform\":" + numbers({map.a, map.b, map.c, map.d, map.tx, map.ty});
    if (state.opacity != 1) {
        text += ",\"opacity\":" + number(state.opacity);
    }
    return text + "}";
}

std::string styleText(const StrokeStyle& style) {
    std::string text = ",\"width\":" + number(style.width);
    if (style.cap == LineCap::round) {
        text += ",\"cap\":\"round\"";
    }
    if (style.join == LineJoin::round) {
        text += ",\"join\":\"round\"";
    }
    if (style.dashCount > 0) {
        std::string dash;
        for (std::size_t index = 0; index < style.dashCount; ++index) {
            dash += (index > 0 ? "," : "") + number(style.dash[index]);
        }
        text += ",\"dash\":[" + dash + "]";
    }
    return text;
}

constexpr std::array<std::string_view, 4> designNames{"standard", "rounded", "serif", "monospaced"};
constexpr std::array<std::string_view, 5> weightNames{"regular", "semibold", "bold", "heavy", "black"};

struct CommandText {
    std::string operator()(const FillCommand& command) const {
        return "{\"fill\":" + pathText(command.path) +
               ",\"with\":" + std::visit(ShadingText{}, command.shading) + stateText(command.state);
    }

    std::string operator()(const StrokeCommand& command) const {
        return "{\"stroke\":" + pathText(command.path) +
               ",\"with\":" + std::visit(ShadingText{}, command.shading) + styleText(command.style) +
               stateText(command.state);
    }

    std::string operator()(const TextCommand& command) const {
        const TextRun& run = command.run;
        return "{\"text\":" + quoted(command.text) +
               ",\"center\":" + numbers({command.center.x, command.center.y}) +
               ",\"size\":" + number(run.size) +
               ",\"weight\":" + quoted(weightNames[static_cast<std::size_t>(run.weight)]) +
               ",\"design\":" + quoted(designNames[static_cast<std::size_t>(run.design)]) +
               ",\"with\":" + colorText(run.color) + stateText(command.state);
    }
};

} // namespace

std::string toJson(const DrawCommand& command) {
    return std::visit(CommandText{}, command);
}

} // namespace mimkins
