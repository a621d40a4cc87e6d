#pragma once

#include "HookInstaller/HookInstaller.h"
#include "Pet/PetAction.h"
#include "Theme/PetTheme.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// True if the user has yet to connect, or to bring the connection up to date.
constexpr bool needsSetup(HookInstaller::Status status) {
    return status == HookInstaller::Status::notConnected || status == HookInstaller::Status::needsUpdate;
}

/// What the welcome screen of the drawer says about the connection to the client.
struct SetupWords {
    enum class Action {
        connect, ///< or bring the connection up to date
        leave,   ///< go on to the pets
    };

    struct Button {
        std::string_view title;
        Action action = Action::leave;
        bool primary = false; ///< else a plain one

        friend bool operator==(const Button&, const Button&) = default;
    };

    std::string_view heading;
    std::string_view text;
    PetAction pet = PetAction::waving;
    /// The screen tells what connecting changes: the bullets, and the details on demand.
    bool explains = false;
    std::vector<Button> buttons; ///< left to right

    static SetupWords of(HookInstaller::Status status);

    static constexpr std::array<std::string_view, 3> bullets{
        "Adds one small hook to Claude Code's settings. Your other hooks stay exactly as they are.",
        "Backs up settings.json first. Disconnect any time in Settings.",
        "Everything stays on this Mac. Nothing is sent anywhere.",
    };

    /// The title of the button that shows the details or hides them.
    static constexpr std::string_view detailsTitle(bool shown) {
        return shown ? "Hide the details" : "Exactly what changes";
    }

    static constexpr std::uint64_t petSeed = 168;
};

/// What the settings say about the connection to the client, and about that of other agents.
struct ConnectionWords {
    enum class Action { connect, disconnect };

    struct Button {
        std::string_view title;
        Action action = Action::connect;

        friend bool operator==(const Button&, const Button&) = default;
    };

    std::string_view state;
    std::optional<Button> button;

    static ConnectionWords of(HookInstaller::Status status);

    static constexpr std::string_view otherAgents = "Other agents";
    static constexpr std::string_view promptHint =
        "Codex, Hermes, Gemini, Grok or any other agent that runs on this Mac can connect itself. Copy this "
        "prompt and paste it into the agent:";
    static constexpr std::string_view promptPreview = "“Please connect yourself to Mimkins…”";
    static constexpr std::string_view commandHint = "Or add the mimkin command to your terminal yourself:";
    static constexpr std::string_view uninstall = "Uninstall Mimkins…";

    static constexpr std::string_view copyPrompt(bool copied) {
        return copied ? "Copied" : "Copy setup prompt";
    }

    static constexpr std::string_view copyCommand(bool copied) { return copied ? "Copied" : "Copy"; }
};

/// The colour of the dot beside the connection's state.
const Color& dotColor(const PetTheme& theme, HookInstaller::Status status);

/// The question that comes before the application is taken off the machine.
struct UninstallWords {
    static constexpr std::string_view title = "Uninstall Mimkins?";
    static constexpr std::string_view confirm = "Uninstall";
    static constexpr std::string_view cancel = "Cancel";

    static std::string message();
};

/// What comes with the program for other agents, as absolute paths.
struct AgentFiles {
    std::string guide;   ///< AGENT-SETUP.md
    std::string command; ///< mimkin

    friend bool operator==(const AgentFiles&, const AgentFiles&) = default;
};

/// The line for a shell that makes the command reachable by its name.
std::string linkCommand(const AgentFiles& files);

/// The prompt that makes another agent connect itself. What lies in the home folder is written with "$HOME".
std::string agentPrompt(const AgentFiles& files, const std::string& home);

/// Where a copy of the guide can be read.
inline constexpr std::string_view onlineGuide = "https://mimkins.app/agent-setup.md";

} // namespace mimkins
