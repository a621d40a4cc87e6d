#pragma once

#include "Base/Paths.h"

#include <CLI/CLI.hpp>

#include <string>

namespace mimkins {

/// What `mimkin` answers to its caller.
enum ExitCode {
    exitSuccess = 0,
    exitFailure = 1,   ///< the work could not be done
    exitUsage = 2,     ///< the command's words are off
    exitSomething = 3, ///< an answer of "not clear": something is left
};

/// What every command is given: the home folder, and where its exit code goes.
struct CommandContext {
    std::string home; ///< empty: that of the password database
    ExitCode exitCode = exitSuccess;

    Paths paths() const;
};

/// Each adds one command to the program; the context outlives it.
void addReportCommand(CLI::App& program, CommandContext& context);
void addSessionsCommand(CLI::App& program, CommandContext& context);
void addWrapupCommand(CLI::App& program, CommandContext& context);
void addWhyCommand(CLI::App& program, CommandContext& context);
void addHooksCommand(CLI::App& program, CommandContext& context);
void addDemoCommand(CLI::App& program, CommandContext& context);

} // namespace mimkins
