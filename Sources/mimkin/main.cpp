#include "Command.h"

#include "Platform/Linux/HomeFolder.h"

#include <iostream>
#include <stdexcept>

namespace mimkins {

Paths CommandContext::paths() const {
    if (!home.empty()) {
        return Paths(home);
    }
    const auto folder = homeFolder();
    if (!folder) {
        throw std::runtime_error("the password database has no home folder for you; name one with --home");
    }
    return Paths(*folder);
}

namespace {

constexpr const char* exitCodes =
    "Exit codes: 0 done, 1 it failed, 2 wrong words; a command's own help tells of others.";

void checkHome(const std::string& home) {
    if (!home.empty() && home.front() != '/') {
        throw CLI::ValidationError("--home", "must be an absolute path");
    }
}

int runProgram(int argumentCount, char** arguments) {
    CLI::App program("mimkin: tells Mimkins about agent sessions, and tells you about them", "mimkin");
    CommandContext context;
    program.add_option("--home", context.home, "Hang everything off this folder instead of your home folder");
    program.set_version_flag("--version", MIMKINS_VERSION);
    program.require_subcommand(1);
    program.fallthrough();
    program.footer(exitCodes);
    program.parse_complete_callback([&context] { checkHome(context.home); });
    addReportCommand(program, context);
    addSessionsCommand(program, context);
    addWrapupCommand(program, context);
    addWhyCommand(program, context);
    addHooksCommand(program, context);
    addDemoCommand(program, context);
    try {
        program.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? exitSuccess : exitUsage;
    } catch (const std::exception& error) {
        std::cerr << "mimkin: " << error.what() << "\n";
        return exitFailure;
    }
    return context.exitCode;
}

} // namespace

} // namespace mimkins

int main(int argumentCount, char** arguments) {
    return mimkins::runProgram(argumentCount, arguments);
}
