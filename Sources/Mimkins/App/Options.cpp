#include "App/Options.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <map>
#include <string>

namespace mimkins {

namespace {

constexpr const char* purpose =
    "Shows every coding-agent session as a pet in a drawer at the right edge of the screen.\n"
    "A second start opens the drawer of the first and ends.";

constexpr const char* footer =
    "Examples:\n"
    "  mimkins\n"
    "  mimkins --demo                            # made-up sessions in a throw-away home\n"
    "  mimkins --demo --sessions 30 --speed 20\n"
    "  mimkins --demo --home /tmp/demo           # the home stays, for a look at its files\n\n"
    "Exit codes: 0 done, 1 failed, over 100 wrong usage.";

void describeDemo(CLI::App& app, Options& options) {
    auto* demo =
        app.add_flag("--demo", options.demo, "Show made-up sessions that live a lively day at high speed");
    app.add_option("--sessions", options.demoSessions, "How many sessions the demo has (8)")
        ->type_name("N")
        ->check(CLI::Range(1, 2'000))
        ->needs(demo);
    app.add_option("--speed", options.demoSpeed, "Seconds of the demo's day in a real one (60)")
        ->type_name("X")
        ->check(CLI::Range(0.1, 10'000.0))
        ->needs(demo);
}

/// CLI11 stores through pointers; `at` and `home` are optional, and so CLI11's own.
void describe(CLI::App& app, Options& options) {
    app.description(purpose);
    app.add_option("--home", options.home, "Take this folder for the user's home folder")->type_name("DIR");
    app.add_flag(
        "--keyboard", options.keyboard, "Open the drawer of the running program and give it the keyboard"
    );
    app.add_flag("--settings", options.settings, "Open the settings of the running program in a window");
    describeDemo(app, options);
    app.set_version_flag("--version", std::string("mimkins ") + MIMKINS_VERSION);
    app.require_subcommand(0, 1);
    app.footer(footer);
}

/// What every picture of a pet can be told.
void describePet(CLI::App& command, PetRenderOptions& pet) {
    command.add_option("--seed", pet.seed, "The pet's identity")->type_name("N");
    command.add_option("--clock", pet.clock, "The moment, in seconds since 1 January 2001")->type_name("T");
    command.add_option("--elapsed", pet.elapsed, "Seconds in the present state (60)")->type_name("S");
    command.add_option("--effort", pet.effort, "0 ordinary, 1 high, 2 top")->check(CLI::Range(0, 2));
    command.add_flag("--waiting", pet.waiting, "A person holds the session up");
    command.add_option("--theme", pet.theme, "The theme's id (night)")->type_name("ID");
    command.add_option("--shuffle", pet.shuffle, "Another value gives other pets")->type_name("N");
    command.add_option("--speed", pet.speed, "A factor on the animation's time")
        ->check(CLI::Range(0.01, 100.0));
    command.add_flag("--no-antics", pet.noAntics, "Without the optional routines");
    command.add_flag("--party", pet.party, "Every pet dances");
    command.add_option("--trick", pet.trick, "Pins the idle routine")->type_name("N");
    command.add_option("--size", pet.size, "Side of a pet in pixels (62)")->check(CLI::Range(8.0, 2048.0));
}

void describeSubject(CLI::App& command, PetRenderOptions& pet) {
    auto* action = command.add_option("--action", pet.action, "What the pet acts out")->type_name("A");
    command.add_option("--routine", pet.routine, "One routine alone, at its best moment without --clock")
        ->type_name("R")
        ->excludes(action);
}

void describePetPicture(CLI::App& render, Options& options) {
    using Output = PetRenderOptions::Output;
    PetRenderOptions& wanted = options.pet;
    auto* pet = render.add_subcommand("pet", "One pet");
    describeSubject(*pet, wanted);
    describePet(*pet, wanted);
    auto* kind = pet->add_option_group("output")->require_option(1);
    kind->add_option("-o,--output", wanted.file, "The PNG file to write")->type_name("FILE");
    kind->add_flag_callback(
        "--commands", [&wanted] { wanted.output = Output::commands; }, "Print the drawing as JSON"
    );
    kind->add_flag_callback(
        "--stage", [&wanted] { wanted.output = Output::stage; }, "Print what is on stage as JSON"
    );
    pet->footer("Examples:\n"
                "  mimkins render pet --action hammering --seed 7 --size 248 -o pet.png\n"
                "  mimkins render pet --routine cartwheel --theme paper -o pet.png\n"
                "  mimkins render pet --action idle --clock 1000 --stage");
    pet->callback([&options] { options.command = Options::Command::renderPet; });
}

void describeSheet(CLI::App& render, Options& options) {
    PetRenderOptions& wanted = options.pet;
    auto* sheet = render.add_subcommand("sheet", "A labelled grid of pets");
    sheet->add_option("which", wanted.sheet, "actions, work, waiting, idle, tricks, themes or heads")
        ->required()
        ->check(CLI::IsMember({"actions", "work", "waiting", "idle", "tricks", "themes", "heads"}));
    describePet(*sheet, wanted);
    sheet->add_flag("--no-labels", wanted.noLabels, "Without names");
    sheet->add_option("-o,--output", wanted.file, "The PNG file to write")->required()->type_name("FILE");
    sheet->footer("Examples:\n"
                  "  mimkins render sheet work --size 124 -o work.png\n"
                  "  mimkins render sheet heads --no-labels -o heads.png");
    sheet->callback([&options] { options.command = Options::Command::renderSheet; });
}

void describeFilm(CLI::App& render, Options& options) {
    PetRenderOptions& wanted = options.pet;
    auto* film =
        render.add_subcommand("film", "A strip of frames, or a moving picture that goes round for ever");
    describeSubject(*film, wanted);
    describePet(*film, wanted);
    film->add_option("--frames", wanted.frames, "How many frames (12 in a strip, 20 a second in a GIF)")
        ->check(CLI::Range(1, 2000))
        ->type_name("N");
    film->add_option("--seconds", wanted.seconds, "How long it lasts (6)")
        ->check(CLI::Range(0.01, 600.0))
        ->type_name("S");
    film->add_flag("--no-labels", wanted.noLabels, "Without times");
    film->add_option(
            "-o,--output", wanted.file, "The file to write: PNG for a strip, GIF for a moving picture"
    )
        ->required()
        ->type_name("FILE");
    film->footer("Examples:\n"
                 "  mimkins render film --routine juggle --seconds 4 --size 124 -o juggle.gif\n"
                 "  mimkins render film --action sleeping --frames 24 -o sleeping.png");
    film->callback([&options] { options.command = Options::Command::renderFilm; });
}

void describeIcon(CLI::App& render, Options& options) {
    auto* icon = render.add_subcommand("icon", "The application's icon");
    icon->add_option("--size", options.iconSide, "Side in pixels (128)")
        ->check(CLI::Range(8, 2048))
        ->type_name("N");
    icon->add_option("-o,--output", options.output, "The PNG file to write")->required()->type_name("FILE");
    icon->footer("Example:\n  mimkins render icon --size 48 -o mimkins.png");
    icon->callback([&options] { options.command = Options::Command::renderIcon; });
}

void describePetPictures(CLI::App& render, Options& options) {
    describePetPicture(render, options);
    describeSheet(render, options);
    describeFilm(render, options);
    describeIcon(render, options);
}

using Command = Options::Command;

/// A picture of what is made of a home's sessions.
struct Screen {
    const char* name;
    const char* purpose;
    Command command;
};

CLI::App* describeScreen(CLI::App& render, Options& options, const Screen& screen) {
    auto* command = render.add_subcommand(screen.name, screen.purpose);
    command->add_option("--home", options.home, "The home folder whose sessions are shown")->type_name("DIR");
    command->add_option("--at", options.at, "The moment shown, in milliseconds since 1970 (else now)")
        ->type_name("MS");
    command->add_option("--theme", options.theme, "The theme's id (else that of the settings)")
        ->type_name("ID");
    command->add_option("--scale", options.scale, "Pixels per point")->check(CLI::Range(0.5, 8.0));
    command->add_option("--text-size", options.textSize, "Size of the user's font; 2 for 200 percent")
        ->check(CLI::Range(1.0, 4.0));
    command->add_option("-o,--output", options.output, "The PNG file to write")
        ->required()
        ->type_name("FILE");
    command->callback([&options, chosen = screen.command] { options.command = chosen; });
    return command;
}

void addWidth(CLI::App& command, Options& options) {
    command
        .add_option_function<std::string>(
            "--width",
            [&options](const std::string& word) { options.width = choiceNamed<DrawerWidth>(word); },
            "narrow, regular or wide (else that of the settings)"
        )
        ->check(CLI::IsMember({"narrow", "regular", "wide"}))
        ->type_name("W");
}

void addExpanded(CLI::App& command, Options& options) {
    command.add_option("--expanded", options.expanded, "The session whose subtasks are open")
        ->type_name("ID");
}

void addState(CLI::App& command, Options& options, const std::map<std::string, Options::CardState>& states) {
    command.add_option("--state", options.cardState, "How it is shown (plain)")
        ->transform(CLI::CheckedTransformer(states, CLI::ignore_case).description(""))
        ->type_name("S");
}

CLI::App* describeDrawer(CLI::App& render, Options& options, const Screen& screen) {
    auto* command = describeScreen(render, options, screen);
    addWidth(*command, options);
    addExpanded(*command, options);
    command->add_option("--height", options.height, "Height of the drawer in points")
        ->check(CLI::Range(200, 4000));
    return command;
}

void describeCards(CLI::App& render, Options& options) {
    using State = Options::CardState;
    auto* cards = describeScreen(
        render, options, {"card", "The card of each session, below one another", Command::renderCards}
    );
    addWidth(*cards, options);
    addExpanded(*cards, options);
    addState(
        *cards, options,
        {{"plain", State::plain}, {"hover", State::hover}, {"pressed", State::pressed}, {"next", State::next}}
    );
    cards->footer("Example:\n  mimkins render card --state next --width narrow -o cards.png");
    auto* tab = describeScreen(render, options, {"tab", "The tab at the screen's edge", Command::renderTab});
    addState(*tab, options, {{"plain", State::plain}, {"hover", State::hover}});
    tab->add_flag("--open", options.open, "Beside an open drawer");
    tab->footer("Example:\n  mimkins render tab --state hover --scale 2 -o tab.png");
}

void describeSetup(CLI::App& render, Options& options) {
    auto* setup =
        describeDrawer(render, options, {"setup", "The drawer with the set-up screen", Command::renderSetup});
    setup->add_option("--status", options.setup.status, "How the connection stands (notConnected)")
        ->check(CLI::IsMember({"connected", "notConnected", "needsUpdate", "noClaudeCode"}));
    setup->add_flag("--details", options.setup.details, "With what connecting changes in detail");
    setup->add_flag("--press", options.setup.press, "As it is after a press on the connecting button");
    setup->footer("Example:\n  mimkins render setup --status needsUpdate --theme paper --details -o setup.png"
    );
}

void describeRender(CLI::App& app, Options& options) {
    auto* render = app.add_subcommand("render", "Draw a picture into a file; needs no display");
    render->require_subcommand(1);
    describeDrawer(*render, options, {"drawer", "The open drawer with its tab", Command::renderDrawer});
    describeDrawer(*render, options, {"sweep", "The drawer with the wrap-up", Command::renderSweep});
    describeDrawer(
        *render, options,
        {"settings", "The drawer with the settings, as high as they are", Command::renderSettings}
    );
    describeScreen(
        *render, options,
        {"hud", "The notice that the first press of the shortcut brings", Command::renderHud}
    );
    describeCards(*render, options);
    describeSetup(*render, options);
    describePetPictures(*render, options);
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
