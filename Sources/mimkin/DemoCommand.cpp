#include "Command.h"
#include "DemoPlayer.h"
#include "DemoStage.h"
#include "StopSignals.h"

#include "Platform/Linux/DemoHome.h"
#include "Platform/Linux/LinuxRunLoop.h"

#include <unistd.h>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

namespace mimkins {

namespace {

constexpr const char* examples =
    R"(Plays a crew of made-up sessions in a throw-away home folder, at high speed and over and over: work and
waits of every kind, subagents, commands in the background, commits. All of it is real: the hook script
writes the records, live processes stand for the clients, and git keeps the projects. Nothing outside of the
folder is touched, and every process ends with the command.

The folder must be new, empty, or left by another demo; what that one left in it is removed.

Examples:
  mimkin demo --home /tmp/demo
  mimkin demo --home /tmp/demo --sessions 200 --speed 20
  mimkin sessions --home /tmp/demo --watch
  mimkins --demo                            # the same with a drawer

Exit codes: 0 it was ended, 1 it failed, 2 wrong words.)";

constexpr std::size_t mostSessions = 2'000;
constexpr double lowestSpeed = 0.1;
constexpr double highestSpeed = 10'000;

struct DemoOptions {
    demo::Schedule schedule;
    std::optional<double> seconds;
    bool removeHome = false;
};

/// Removes the home when it goes, if that was wished for.
class HomeKeeper {
public:
    HomeKeeper(DemoHome& home, bool remove) : home_(home), remove_(remove) {}

    HomeKeeper(const HomeKeeper&) = delete;
    HomeKeeper& operator=(const HomeKeeper&) = delete;

    ~HomeKeeper() {
        if (remove_) {
            home_.remove();
        }
    }

private:
    DemoHome& home_;
    bool remove_;
};

/// One line on the terminal that says how far the play is.
class ProgressLine {
public:
    ProgressLine(RunLoop& loop, const DemoPlayer& player, const DemoStage& stage)
        : player_(player), stage_(stage) {
        if (::isatty(STDERR_FILENO) == 1) {
            begun_ = loop.now();
            timer_ = loop.every(1, [this, &loop] { print(loop.now()); });
        }
    }

    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    ~ProgressLine() {
        if (timer_) {
            std::cerr << "\r\033[K" << std::flush;
        }
    }

private:
    void print(Date now) const {
        constexpr int hour = 3'600;
        constexpr int minute = 60;
        constexpr double fallingBehind = 0.9;
        const auto position = static_cast<long long>(player_.position());
        const double speed = player_.position() / std::max(now - begun_, 1.0);
        std::ostringstream line;
        line << stage_.clients() << " sessions, " << position / hour << ":" << std::setw(2)
             << std::setfill('0') << position / minute % minute << " h played, " << player_.steps()
             << " steps";
        if (speed < fallingBehind * player_.schedule().speed) {
            line << ", at only " << static_cast<long long>(speed) << " times the speed";
        }
        std::cerr << "\r\033[K" << line.str() << std::flush;
    }

    const DemoPlayer& player_;
    const DemoStage& stage_;
    Date begun_;
    Handle timer_;
};

void playDemo(const DemoOptions& options, const std::string& folder) {
    LinuxRunLoop loop;
    const StopSignals signals(loop, [&loop] { loop.stop(); });
    DemoHome home(folder);
    home.lock();
    const HomeKeeper keeper(home, options.removeHome);
    home.clear();
    DemoStage stage(Paths(home.path()), loop);
    DemoPlayer player(loop, stage, options.schedule);
    std::cout << "Playing " << options.schedule.sessions << " sessions in " << home.path() << " at "
              << options.schedule.speed << " times the speed. End it with Ctrl-C." << std::endl;
    const ProgressLine progress(loop, player, stage);
    player.start();
    if (options.seconds) {
        loop.runFor(*options.seconds);
    } else {
        loop.run();
    }
}

} // namespace

void addDemoCommand(CLI::App& program, CommandContext& context) {
    auto* command = program.add_subcommand("demo", "Play made-up sessions in a throw-away home folder");
    const auto options = std::make_shared<DemoOptions>();
    auto& schedule = options->schedule;
    command->add_option("--sessions", schedule.sessions, "How many sessions there are")
        ->capture_default_str()
        ->check(CLI::Range(std::size_t{1}, mostSessions));
    command->add_option("--speed", schedule.speed, "How many seconds of their day go by in one second")
        ->capture_default_str()
        ->check(CLI::Range(lowestSpeed, highestSpeed));
    command->add_option("--seconds", options->seconds, "End after so many real seconds (default: never)")
        ->check(CLI::PositiveNumber);
    command->add_flag("--remove-home", options->removeHome, "Remove the folder at the end");
    command->footer(examples);
    command->callback([options, &context] {
        if (context.home.empty()) {
            throw CLI::ValidationError("--home", "name a new folder for the demo; it never plays in yours");
        }
        // A large crew has arrived as soon as a small one, as far as the machine can keep up.
        constexpr double longestArrivals = 600;
        auto& arrivals = options->schedule.betweenStarts;
        arrivals = std::min(arrivals, longestArrivals / static_cast<double>(options->schedule.sessions));
        playDemo(*options, context.home);
    });
}

} // namespace mimkins
