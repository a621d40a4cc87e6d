#include "Command.h"
#include "Report.h"
#include "WallClock.h"

#include "Base/Error.h"
#include "Platform/Linux/AtomicFile.h"
#include "Platform/Linux/LinuxFileSystem.h"
#include "SessionStore/StatusReader.h"

#include <filesystem>
#include <iostream>
#include <memory>

namespace mimkins {

namespace {

constexpr std::size_t largestOwnRecord = 1 << 20;

constexpr const char* examples =
    R"(States: working, waiting (on the user), done (the turn is over), idle.

A wait for "AskUserQuestion" shows as a question, one for "ExitPlanMode" as a plan to approve, every
other wait as one for the user's OK. "since" is kept while the state stays the same.

Examples:
  mimkin report --agent codex --id 42 --state working --tool Bash --detail "make test" --pid $PPID
  mimkin report --agent codex --id 42 --state waiting --tool Bash --detail "rm -r build"
  mimkin report --agent codex --id 42 --state waiting --tool AskUserQuestion --message "Which colour?"
  mimkin report --agent codex --id 42 --state done --title "Fix the build" --open https://example.org/42
  mimkin report --agent codex --id 42 --clear

Exit codes: 0 reported, 1 could not be written, 2 wrong words.)";

struct ReportOptions {
    Report report;
    bool clear = false;
};

std::optional<StatusRecord> previousRecord(const std::string& path) {
    const auto bytes = LinuxFileSystem().readFile(path, largestOwnRecord);
    return bytes ? parseStatusRecord(*bytes) : std::nullopt;
}

ExitCode clearReport(const std::string& path) {
    std::error_code error;
    std::filesystem::remove(path, error);
    if (error) {
        std::cerr << "mimkin report: couldn't remove " << path << ": " << error.message() << "\n";
        return exitFailure;
    }
    return exitSuccess;
}

ExitCode writeReport(const Report& report, const Paths& paths, const std::string& path) {
    if (!LinuxFileSystem().createFolders(paths.sessions())) {
        std::cerr << "mimkin report: couldn't make the folder " << paths.sessions() << "\n";
        return exitFailure;
    }
    constexpr mode_t readableByAll = 0644;
    try {
        const auto record = recordOf(report, previousRecord(path), wallClock());
        AtomicFile(path, statusFileText(record), readableByAll, Durability::cached).replace();
    } catch (const Error& error) {
        std::cerr << "mimkin report: " << error.what() << "\n";
        return exitFailure;
    }
    return exitSuccess;
}

ExitCode run(ReportOptions options, const CommandContext& context) {
    auto& report = options.report;
    if (options.clear && report.record.state.empty()) {
        report.record.state = "done";
    }
    if (const auto problem = problemOf(report)) {
        std::cerr << "mimkin report: " << *problem << "\n";
        return exitUsage;
    }
    const auto paths = context.paths();
    const auto path = paths.sessions() + "/" + reportFileName(report.record.id);
    return options.clear ? clearReport(path) : writeReport(report, paths, path);
}

void addFieldOptions(CLI::App& command, Report& report) {
    command.add_option(
        "--event", report.record.event, "The event behind the report, such as PreCompact (default Report)"
    );
    command.add_option("--tool", report.record.tool, "The tool in use or awaited, such as Bash");
    command.add_option("--detail", report.record.detail, "The tool's argument in short: a path, a command");
    command.add_option("--message", report.record.message, "Words for the user");
    command.add_option(
        "--notification", report.record.notification, "The kind of notification, such as elicitation_dialog"
    );
    command.add_option("--cwd", report.record.cwd, "The working folder");
    command.add_option(
        "--project", report.record.project, "The project's short name (default: the folder's)"
    );
    command.add_option("--transcript", report.record.transcript, "The path of the session's transcript");
    command.add_option("--effort", report.record.effort, "low, medium, high, xhigh or max");
    command.add_option("--model", report.record.model, "The model's id");
    command.add_option("--title", report.record.title, "The session's title");
    command.add_option("--pid", report.record.pid, "The process whose end is the session's end");
    command.add_option("--open", report.record.open, "The http, https or file link that opens the session");
    command.add_option("--since", report.since, "When the state began, milliseconds since 1970");
    command.add_option("--ts", report.ts, "When this was reported, milliseconds since 1970 (default: now)");
}

} // namespace

void addReportCommand(CLI::App& program, CommandContext& context) {
    auto* command = program.add_subcommand("report", "Report the state of an agent's session");
    const auto options = std::make_shared<ReportOptions>();
    command->add_option("--agent", options->report.record.agent, "The agent's name")->required();
    command->add_option("--id", options->report.record.id, "The session's id, unique among all agents")
        ->required();
    auto* state =
        command->add_option("--state", options->report.record.state, "working, waiting, done or idle");
    auto* clear = command->add_flag("--clear", options->clear, "Remove the session's record");
    addFieldOptions(*command, options->report);
    command->footer(examples);
    command->callback([options, state, clear, &context] {
        if (state->empty() && clear->empty()) {
            throw CLI::RequiredError("--state or --clear");
        }
        context.exitCode = run(*options, context);
    });
}

} // namespace mimkins
