#include "Presentation/SetupWords.h"

#include "HookInstaller/Backups.h"

namespace mimkins {

namespace {

using Status = HookInstaller::Status;

/// A path as it stands inside double quotes of a shell. Ordinary paths stay as they are.
std::string insideQuotes(std::string_view path) {
    std::string escaped;
    for (const char character : path) {
        if (character == '"' || character == '\\' || character == '$' || character == '`') {
            escaped += '\\';
        }
        escaped += character;
    }
    return escaped;
}

std::string withHomeVariable(const std::string& path, const std::string& home) {
    const bool below =
        path.size() > home.size() && path.compare(0, home.size(), home) == 0 && path[home.size()] == '/';
    return below ? "$HOME" + insideQuotes(path.substr(home.size())) : insideQuotes(path);
}

std::vector<SetupWords::Button> connectingButtons(std::string_view connect) {
    return {{"Not now", SetupWords::Action::leave, false}, {connect, SetupWords::Action::connect, true}};
}

} // namespace

SetupWords SetupWords::of(HookInstaller::Status status) {
    const std::vector<Button> onwards{{"Show my pets", Action::leave, true}};
    switch (status) {
    case Status::connected:
        return {
            "You're connected!",
            "Every Claude Code session now gets its own Mimkin. They'll pop up here as soon as a session "
            "does something.",
            PetAction::yourTurn, false, onwards};
    case Status::needsUpdate:
        return {
            "Update the Claude Code connection",
            "Mimkins has moved its hook to a new home. One click points Claude Code at it.",
            PetAction::waving, true, connectingButtons("Update connection")};
    case Status::noClaudeCode:
        return {
            "Claude Code isn't installed yet",
            "Install Claude Code, then come back here to connect. Other agents can still use the mimkin "
            "command.",
            PetAction::waving, false, onwards};
    case Status::notConnected:
        break;
    }
    return {
        "Welcome to Mimkins",
        "A little pet for every Claude Code session, so you can see at a glance who's busy, who's done and "
        "who needs you.",
        PetAction::waving, true, connectingButtons("Connect Claude Code")};
}

ConnectionWords ConnectionWords::of(HookInstaller::Status status) {
    switch (status) {
    case Status::connected:
        return {"Connected to Claude Code", Button{"Disconnect", Action::disconnect}};
    case Status::needsUpdate:
        return {"Connected, but needs an update", Button{"Update", Action::connect}};
    case Status::noClaudeCode:
        return {"Claude Code isn't installed", std::nullopt};
    case Status::notConnected:
        break;
    }
    return {"Not connected to Claude Code", Button{"Connect", Action::connect}};
}

const Color& dotColor(const PetTheme& theme, HookInstaller::Status status) {
    switch (status) {
    case Status::connected:
        return theme.yourTurn;
    case Status::needsUpdate:
        return theme.waiting;
    default:
        return theme.quiet;
    }
}

std::string UninstallWords::message() {
    return "This removes Mimkins' hook from Claude Code (your other hooks stay), turns off Open at Login, "
           "and "
           "deletes its settings and status files. Then it quits and shows the app in Finder so you can drag "
           "it to the Bin.\n\n"
           "Up to three backups of your Claude Code settings stay in ~/.claude (" +
           std::string(backupPrefix) + "…), in case you need one. Delete them whenever you like.";
}

std::string linkCommand(const AgentFiles& files) {
    return "mkdir -p ~/.local/bin && ln -sf \"" + insideQuotes(files.command) + "\" ~/.local/bin/mimkin";
}

std::string agentPrompt(const AgentFiles& files, const std::string& home) {
    return "Please connect yourself to Mimkins, the Mac app on this computer that shows a little animated "
           "pet "
           "for each AI agent session (working, waiting for me, done).\n\n"
           "1. Read the setup guide: \"" +
           withHomeVariable(files.guide, home) + "\" (online copy: " + std::string(onlineGuide) +
           ").\n"
           "2. Follow it to hook Mimkins' command, \"" +
           withHomeVariable(files.command, home) +
           "\", into your own hooks or settings, so your pet updates by itself.\n"
           "3. Back up any config file before you change it, show me exactly what you'll change, and wait "
           "for "
           "my OK before saving.\n\n"
           "This only works if you can run commands on this Mac. If you can't, just tell me.";
}

} // namespace mimkins
