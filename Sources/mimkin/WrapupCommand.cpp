#include "Command.h"
#include "Preferences.h"
#include "SessionsJson.h"
#include "SweepJson.h"
#include "Terminal.h"
#include "WallClock.h"

#include "Platform/Linux/OneLoad.h"
#include "Platform/Linux/ProgressNote.h"
#include "Presentation/SweepText.h"

#include <unistd.h>

#include <chrono>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>

namespace mimkins {

namespace {

constexpr const char* examples =
    R"(Tells whether it is safe to leave: which sessions wait on you, which repositories of the last two days
hold uncommitted lines, what is scheduled, and which commands still run. Scheduled work goes on by itself, so
it doesn't keep you.

Examples:
  mimkin wrapup
  mimkin wrapup && systemctl suspend
  mimkin wrapup --json | jq -r '.repositories[].root'

Times in JSON are milliseconds since 1970, absent values are null.

Exit codes: 0 all clear, 1 it failed, 2 wrong words, 3 something is left.)";

struct WrapupOptions {
    bool asJson = false;
    std::optional<double> at;
};

/// Looks at everything, which can take a while where git is slow.
SweepReport sweepOnce(const Paths& paths, Date at) {
    constexpr std::chrono::seconds patience{1};
    const ProgressNote note(STDERR_FILENO, SweepWords::checkingSessions, patience);
    OneLoad load(paths, readPreferences(paths).rules, at);
    load.store().runSweep();
    if (!load.store().sweep()) {
        throw std::logic_error("the sweep didn't end");
    }
    return *load.store().sweep();
}

ExitCode wrapUp(const WrapupOptions& options, const Paths& paths) {
    const Date at = options.at ? Date::fromMilliseconds(*options.at) : wallClock();
    const auto report = sweepOnce(paths, at);
    const auto words = SweepWords::of(report, at);
    const bool allClear = words.allClear.has_value();
    if (options.asJson) {
        std::cout << jsonText(sweepJson(report, allClear), JsonLayout::pretty) << "\n";
    } else {
        std::cout << sweepText(words, outputStyle());
    }
    return allClear ? exitSuccess : exitSomething;
}

} // namespace

void addWrapupCommand(CLI::App& program, CommandContext& context) {
    auto* command = program.add_subcommand("wrapup", "Tell what is left before you log off");
    const auto options = std::make_shared<WrapupOptions>();
    command->add_flag("--json", options->asJson, "Print JSON");
    command->add_option("--at", options->at, "As of this moment, milliseconds since 1970 (default: now)");
    command->footer(examples);
    command->callback([options, &context] { context.exitCode = wrapUp(*options, context.paths()); });
}

} // namespace mimkins
