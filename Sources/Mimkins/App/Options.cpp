#include "App/Options.h"

#include <CLI/CLI.hpp>

#include <filesystem>

namespace mimkins {

namespace {

constexpr const char* purpose =
    "Shows every coding-agent session as a pet in a drawer at the right edge of the screen.\n"
    "A second start opens the drawer of the first and ends.";

/// CLI11 stores through pointers; `at` and `home` are optional, and so CLI11's own.
void describe(CLI::App& app, Options& options) {
    app.description(purpose);
    app.add_option("--home", options.home, "Take this folder for the user's home folder")->type_name("DIR");
    app.add_flag(
        "--keyboard", options.keyboard, "Open the drawer of the running program and give it the keyboard"
    );
    app.set_version_flag("--version", std::string("mimkins ") + MIMKINS_VERSION);
    app.require_subcommand(0, 1);
    app.footer("Exit codes: 0 done, 1 failed, over 100 wrong usage.");
}

void describeRender(CLI::App& app, Options& options) {
    auto* render = app.add_subcommand("render", "Draw a picture into a file; needs no display");
    render->require_subcommand(1);
    auto* drawer = render->add_subcommand("drawer", "The open drawer with its tab");
    drawer->add_option("--home", options.home, "The home folder whose sessions are shown")->type_name("DIR");
    drawer->add_option("--at", options.at, "The moment shown, in milliseconds since 1970 (else now)")
        ->type_name("MS");
    drawer->add_option("--scale", options.scale, "Pixels per point")->check(CLI::Range(0.5, 8.0));
    drawer->add_option("--height", options.height, "Height of the drawer in points")
        ->check(CLI::Range(200, 4000));
    drawer->add_option("-o,--output", options.output, "The PNG file to write")->required()->type_name("FILE");
    drawer->callback([&options] { options.command = Options::Command::renderDrawer; });
}

} // namespace

ParsedOptions parseOptions(int count, char** words) {
    ParsedOptions parsed;
    CLI::App app;
    describe(app, parsed.options);
    describeRender(app, parsed.options);
    try {
        app.parse(count, words);
    } catch (const CLI::ParseError& end) {
        parsed.exitCode = app.exit(end);
        return parsed;
    }
    if (parsed.options.home) {
        parsed.options.home = std::filesystem::absolute(*parsed.options.home).lexically_normal().string();
    }
    return parsed;
}

} // namespace mimkins
