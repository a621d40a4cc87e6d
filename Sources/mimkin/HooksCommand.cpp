#include "Command.h"

#include "HookInstaller/Connection.h"
#include "Platform/Linux/LinuxResources.h"
#include "Platform/Linux/LinuxSettingsFiles.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <iostream>
#include <memory>

namespace mimkins {

namespace {

constexpr const char* examples =
    R"(Connecting adds one small hook to the client's settings.json for each of its events; the file is
backed up first, and the hooks of others stay as they are. Disconnecting takes them out again.

Examples:
  mimkin hooks status
  mimkin hooks connect
  mimkin hooks disconnect --json

Exit codes: 0 done or told, 1 it failed, 2 wrong words.)";

std::string words(HookInstaller::Status status) {
    switch (status) {
    case HookInstaller::Status::connected:
        return "Connected.";
    case HookInstaller::Status::needsUpdate:
        return "Connected, but the connection needs an update: run \"mimkin hooks connect\".";
    case HookInstaller::Status::notConnected:
        return "Not connected: run \"mimkin hooks connect\".";
    case HookInstaller::Status::noClaudeCode:
        break;
    }
    return "Claude Code isn't here: its folder ~/.claude doesn't exist.";
}

/// The installer with what it works on.
struct Installation {
    explicit Installation(const Paths& paths) : installer(paths, bundledHookScript(), files) {}

    LinuxSettingsFiles files;
    HookInstaller installer;
};

void showStatus(const Paths& paths, bool asJson) {
    const Installation installation(paths);
    const auto status = installation.installer.status();
    if (asJson) {
        std::cout << nlohmann::ordered_json{{"status", std::string(name(status))}}.dump() << "\n";
    } else {
        std::cout << words(status) << "\n";
    }
}

ExitCode showOutcome(const ConnectionOutcome& outcome, bool asJson) {
    if (asJson) {
        nlohmann::ordered_json json;
        json["status"] = std::string(name(outcome.status));
        json["backup"] =
            outcome.backup ? nlohmann::ordered_json(*outcome.backup) : nlohmann::ordered_json(nullptr);
        json["message"] = outcome.message;
        std::cout << json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
    } else {
        (outcome.failed ? std::cerr : std::cout) << outcome.message << "\n";
    }
    return outcome.failed ? exitFailure : exitSuccess;
}

} // namespace

void addHooksCommand(CLI::App& program, CommandContext& context) {
    auto* command =
        program.add_subcommand("hooks", "Connect Claude Code, disconnect it, or tell how things stand");
    command->require_subcommand(1);
    command->footer(examples);
    const auto asJson = std::make_shared<bool>(false);
    command->add_flag("--json", *asJson, "Print JSON");
    auto* status = command->add_subcommand("status", "Tell whether the client is connected");
    status->callback([asJson, &context] { showStatus(context.paths(), *asJson); });
    auto* connect =
        command->add_subcommand("connect", "Connect the client, or bring the connection up to date");
    connect->callback([asJson, &context] {
        Installation installation(context.paths());
        context.exitCode = showOutcome(connectAndReport(installation.installer), *asJson);
    });
    auto* disconnect = command->add_subcommand("disconnect", "Take the hooks out again");
    disconnect->callback([asJson, &context] {
        Installation installation(context.paths());
        context.exitCode = showOutcome(disconnectAndReport(installation.installer), *asJson);
    });
    for (auto* each : {status, connect, disconnect}) {
        each->fallthrough();
    }
    command->fallthrough();
}

} // namespace mimkins
