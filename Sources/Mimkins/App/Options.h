#pragma once

#include "App/RenderOptions.h"
#include "Settings/Choice.h"

#include <optional>
#include <string>

namespace mimkins {

/// What the command line asks for.
struct Options {
    enum class Command {
        run,
        renderDrawer,
        renderSweep,
        renderSettings,
        renderHud,
        renderSetup,
        renderCards,
        renderTab,
        renderPet,
        renderSheet,
        renderFilm,
        renderIcon,
    };

    /// How every card, or the tab, of a picture is shown.
    enum class CardState { plain, hover, pressed, next };

    Command command = Command::run;
    std::optional<std::string> home; ///< absolute; nothing stands for the user's own
    bool keyboard = false;           ///< give the drawer the keyboard
    bool settings = false;           ///< open the settings in a window of their own

    // For a demonstration with made-up sessions.
    bool demo = false;
    std::optional<int> demoSessions;
    std::optional<double> demoSpeed; ///< seconds of the made-up day in a real one

    // For pictures.
    std::optional<double> at;            ///< milliseconds since 1970; nothing stands for now
    std::optional<std::string> theme;    ///< its id; nothing stands for the one of the settings
    double scale = 1;                    ///< pixels per point
    double textSize = 1;                 ///< of the user's own font, a factor
    std::optional<std::string> expanded; ///< the session whose subtasks are open
    CardState cardState = CardState::plain;
    bool open = false; ///< the drawer beside the tab is
    int height = 760;  ///< of the drawer, points
    std::string output;
    int iconSide = 128;               ///< pixels
    std::optional<DrawerWidth> width; ///< nothing stands for the one of the settings
    SetupRenderOptions setup;
    PetRenderOptions pet;
};

/// Either options, or the code with which the program ends because help, a version or an error was printed.
struct ParsedOptions {
    Options options;
    std::optional<int> exitCode;
};

ParsedOptions parseOptions(int count, char** words);

} // namespace mimkins
