#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace mimkins {

/// What `mimkins render pet|sheet|film` is asked for.
struct PetRenderOptions {
    enum class Output { picture, commands, stage };

    std::string action = "idle";
    std::optional<std::string> routine; ///< this alone, whatever the action
    std::uint64_t seed = 168;
    std::optional<double> clock; ///< seconds since 1 January 2001; absent shows a routine at its best
    double elapsed = 60;         ///< seconds in the state
    int effort = 0;
    bool waiting = false;
    std::string theme = "night";
    std::uint64_t shuffle = 0;
    double speed = 1;
    bool noAntics = false;
    bool party = false;
    std::optional<int> trick;
    double size = 62; ///< pixels
    Output output = Output::picture;
    std::string file;

    std::string sheet; ///< which contact sheet
    bool noLabels = false;
    std::optional<int> frames; ///< of a film; absent gives 12 in a strip, 20 a second in a moving picture
    double seconds = 6;        ///< that a film shows
};

/// What `mimkins render setup` is asked for.
struct SetupRenderOptions {
    std::string status = "notConnected"; ///< of the connection
    bool details = false;                ///< what connecting changes is unfolded
    bool press = false;                  ///< the connecting button has been pressed
};

} // namespace mimkins
