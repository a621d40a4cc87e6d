#include "Command.h"
#include "Preferences.h"
#include "SessionsJson.h"
#include "Terminal.h"
#include "WallClock.h"

#include "Platform/Linux/InotifyFolderWatcher.h"
#include "Platform/Linux/LinuxRunLoop.h"
#include "Platform/Linux/OneLoad.h"
#include "Platform/Linux/ThreadQueue.h"
#include "Presentation/SessionsTable.h"

#include <iostream>
#include <memory>

namespace mimkins {

namespace {

constexpr const char* examples =
    R"(Lists the sessions as the drawer shows them: those that wait on you first.

Examples:
  mimkin sessions
  mimkin sessions --watch
  mimkin sessions --json | jq '.sessions[] | select(.mood == "needsPermission") | .title'

Times in JSON are milliseconds since 1970, absent values are null; with --watch each change is one
document in a line.

Exit codes: 0 listed, 1 it failed, 2 wrong words.)";

struct SessionsOptions {
    bool asJson = false;
    bool watch = false;
    std::optional<double> at;
};

void printTable(const SessionStore& store, Date now, std::uint64_t shuffle) {
    std::cout << sessionsTable(store.sessions(), {now, shuffle}, outputStyle());
}

ExitCode listOnce(const SessionsOptions& options, const Paths& paths) {
    const auto preferences = readPreferences(paths);
    const Date at = options.at ? Date::fromMilliseconds(*options.at) : wallClock();
    const OneLoad load(paths, preferences.rules, at);
    if (options.asJson) {
        std::cout << jsonText(sessionsJson(load.store(), at, preferences.shuffle), JsonLayout::pretty)
                  << "\n";
    } else {
        printTable(load.store(), at, preferences.shuffle);
    }
    return exitSuccess;
}

/// Lists again after each change, and on a terminal each second too, since times go on.
ExitCode keepListing(const SessionsOptions& options, const Paths& paths) {
    constexpr const char* clearScreen = "\033[H\033[2J\033[3J";
    const auto preferences = readPreferences(paths);
    LinuxRunLoop loop;
    LinuxFileSystem files;
    InotifyFolderWatcher watcher(loop);
    LinuxProcesses processes;
    const LinuxGitRunner git{};
    const LinuxRandomAccessFiles transcripts{};
    ConcurrentQueue queue("mimkin-git");
    SerialQueue scanQueue("mimkin-scan");
    SessionStore store(paths, {loop, files, watcher, processes, git, transcripts, queue, scanQueue});
    store.setRules(preferences.rules);
    const auto print = [&] {
        if (options.asJson) {
            std::cout << jsonText(sessionsJson(store, loop.now(), preferences.shuffle), JsonLayout::oneLine)
                      << "\n";
        } else {
            std::cout << (outputIsTerminal() ? clearScreen : "");
            printTable(store, loop.now(), preferences.shuffle);
        }
        std::cout.flush();
        if (!std::cout) {
            loop.stop(); // whoever read this has gone
        }
    };
    store.sessionsChanged().connect(print);
    const bool ticking = !options.asJson && outputIsTerminal();
    const auto timer = ticking ? loop.every(1.0, print) : Handle();
    print();
    loop.run();
    return exitSuccess;
}

} // namespace

void addSessionsCommand(CLI::App& program, CommandContext& context) {
    auto* command = program.add_subcommand("sessions", "List the sessions and what they are up to");
    const auto options = std::make_shared<SessionsOptions>();
    command->add_flag("--json", options->asJson, "Print JSON");
    auto* watch = command->add_flag("--watch", options->watch, "Go on, and list again after each change");
    command->add_option("--at", options->at, "As of this moment, milliseconds since 1970 (default: now)")
        ->excludes(watch);
    command->footer(examples);
    command->callback([options, &context] {
        const auto paths = context.paths();
        context.exitCode = options->watch ? keepListing(*options, paths) : listOnce(*options, paths);
    });
}

} // namespace mimkins
