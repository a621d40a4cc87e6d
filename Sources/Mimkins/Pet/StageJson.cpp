#include "Pet/Stage.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace mimkins {

namespace {

/// Seventeen digits give every double back.
std::string number(double value) {
    std::array<char, 32> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.17g", value);
    return {text.data(), static_cast<std::size_t>(length)};
}

std::string colorText(const Color& color) {
    return "[" + number(color.red) + ", " + number(color.green) + ", " + number(color.blue) + ", " +
           number(color.opacity) + "]";
}

std::string colorsText(const PetColors& colors) {
    return "{\"top\": " + colorText(colors.top) + ", \"bottom\": " + colorText(colors.bottom) +
           ", \"limb\": " + colorText(colors.limb) + ", \"hand\": " + colorText(colors.hand) +
           ", \"accent\": " + colorText(colors.accent) + ", \"ink\": " + colorText(colors.ink) +
           ", \"paper\": " + colorText(colors.paper) + "}";
}

/// What a routine's manner is called.
std::string_view mannerName(Routine routine) {
    switch (routine) {
    case Routine::planSign:
        return "walking";
    case Routine::stepSideTo:
        return "waving";
    default:
        return "sitting";
    }
}

std::string cueText(const Cue& cue) {
    std::string text = "{\"routine\": \"" + std::string(name(cue.routine)) +
                       "\", \"phase\": " + (cue.phase ? number(*cue.phase) : "null");
    if (cue.manner) {
        text += ", \"" + std::string(mannerName(cue.routine)) + "\": " + (*cue.manner ? "true" : "false");
    }
    if (cue.length) {
        text += ", \"length\": " + number(*cue.length);
    }
    if (cue.routine == Routine::bubble) {
        const bool asks = cue.bubble == Bubble::question;
        text += std::string(", \"text\": \"") + (asks ? "?" : "!") + "\", \"color\": \"" +
                (asks ? "pink" : "orange") + "\", \"pulse\": true";
    }
    return text + "}";
}

} // namespace

std::string stageJson(const PetFrame& frame, PetAction action) {
    const Stage cues = stage(frame, action);
    std::string text = "{\"t\": " + number(frame.t) + ", \"seed\": " + std::to_string(frame.seed) +
                       ", \"blinkOffset\": " + number(frame.blinkOffset) + ", \"hue\": " + number(frame.hue) +
                       ", \"thin\": " + number(cues.thin) + ", \"colors\": " + colorsText(frame.colors) +
                       ", \"stage\": [";
    for (const Cue& cue : cues) {
        text += (&cue == cues.begin() ? "" : ", ") + cueText(cue);
    }
    return text + "]}";
}

} // namespace mimkins
