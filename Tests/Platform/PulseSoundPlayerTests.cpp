#include "Platform/Linux/PulseSoundPlayer.h"

#include "Base/Log.h"
#include "Sound/Sounds.h"
#include "Support/ChildProcess.h"
#include "Support/RunProgram.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

/// Sounds arrive at a real sound server of the test's own, or quietly nowhere.
using namespace mimkins;
using namespace mimkins::test;

namespace {

constexpr auto server = "/usr/bin/pulseaudio";

/// Waits for what another process does. False if it doesn't happen.
bool comesTrue(const std::function<bool()>& condition) {
    for (int round = 0; round < 400; ++round) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(25));
    }
    return false;
}

std::vector<std::int16_t> samplesIn(const std::string& path) {
    const auto bytes = readWhole(path);
    std::vector<std::int16_t> samples(bytes.size() / sizeof(std::int16_t));
    std::copy_n(bytes.data(), samples.size() * sizeof(std::int16_t), reinterpret_cast<char*>(samples.data()));
    return samples;
}

class PulseSounds : public testing::Test {
protected:
    PulseSounds() {
        std::filesystem::create_directories(home / "run");
        useServer(socket());
        log::setSink([this](const log::Line& line) {
            const std::lock_guard lock(mutex);
            lines.push_back({line.level, std::string(line.text)});
        });
    }

    ~PulseSounds() override {
        log::setSink([](const log::Line&) {});
        // Whatever runs later in this process finds a home that isn't there, rather than the tester's own.
        ::setenv("HOME", "/nonexistent", 1);
        ::unsetenv("PULSE_SERVER");
        ::unsetenv("XDG_RUNTIME_DIR");
    }

    std::string socket() const { return home / "socket"; }

    void useServer(const std::string& path) const {
        ::setenv("PULSE_SERVER", ("unix:" + path).c_str(), 1);
        ::setenv("HOME", home.path().c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", (home / "run").c_str(), 1);
    }

    /// A server whose only loudspeaker is a recorder.
    void startServer() {
        running = std::make_unique<ChildProcess>(
            "/usr/bin/env",
            std::vector<std::string>{
                "env",
                "-i",
                "HOME=" + home.path(),
                "XDG_RUNTIME_DIR=" + home / "run",
                server,
                "-n",
                "--daemonize=no",
                "--use-pid-file=no",
                "--exit-idle-time=-1",
                "--log-target=file:" + home / "server.log",
                "-Lmodule-null-sink sink_name=quiet rate=48000 channels=1 format=s16le norewinds=1",
                "-Lmodule-native-protocol-unix auth-anonymous=1 socket=" + socket(),
            }
        );
        ASSERT_TRUE(comesTrue([this] { return std::filesystem::exists(socket()); }));
        recorder = std::make_unique<ChildProcess>(
            "/usr/bin/env",
            std::vector<std::string>{
                "env",
                "-i",
                "HOME=" + home.path(),
                "PULSE_SERVER=unix:" + socket(),
                "parec",
                "--device=quiet.monitor",
                "--raw",
                "--format=s16le",
                "--rate=48000",
                "--channels=1",
                "--latency-msec=20",
                home / "heard",
            }
        );
        ASSERT_TRUE(comesTrue([this] { return !samplesIn(home / "heard").empty(); }));
    }

    std::string list(const std::string& what) const {
        ProgramCall call;
        call.words = {"pactl", "list", "short", what};
        call.environment = {{"HOME", home.path()}, {"PULSE_SERVER", "unix:" + socket()}};
        return runProgram(call).output;
    }

    /// Whether the loudspeaker has said exactly this.
    bool heard(const std::vector<std::int16_t>& samples) const {
        const auto recorded = samplesIn(home / "heard");
        return std::search(recorded.begin(), recorded.end(), samples.begin(), samples.end()) !=
               recorded.end();
    }

    std::vector<std::pair<log::Level, std::string>> told() {
        const std::lock_guard lock(mutex);
        return lines;
    }

    TemporaryFolder home;
    std::mutex mutex;
    std::vector<std::pair<log::Level, std::string>> lines;
    std::unique_ptr<ChildProcess> running;
    std::unique_ptr<ChildProcess> recorder;
};

TEST_F(PulseSounds, ArriveWholeAndLeaveNothingOpen) {
    if (!std::filesystem::exists(server)) {
        GTEST_SKIP() << "no pulseaudio on this machine";
    }
    startServer();
    PulseSoundPlayer player;
    for (const auto* name : {"Pop", "Purr", "Tink", "Glass", "Frog", "Bottle", "Ping"}) {
        player.play(name);
        EXPECT_TRUE(comesTrue([&] { return heard(soundSamples(name)); })) << name;
        EXPECT_TRUE(comesTrue([this] { return list("sink-inputs").empty(); })) << name;
    }
    EXPECT_TRUE(comesTrue([this] { return list("clients").find("test_") == std::string::npos; }));
    EXPECT_TRUE(told().empty());
}

TEST_F(PulseSounds, OfManyAtOnceTheLastFollowsTheFirst) {
    if (!std::filesystem::exists(server)) {
        GTEST_SKIP() << "no pulseaudio on this machine";
    }
    startServer();
    PulseSoundPlayer player;
    player.play("Glass");
    ASSERT_TRUE(comesTrue([this] { return !list("sink-inputs").empty(); }));
    player.play("Frog");
    player.play("Tink");
    player.play("Pop");
    EXPECT_TRUE(comesTrue([this] { return heard(soundSamples("Pop")); }));
    EXPECT_TRUE(heard(soundSamples("Glass")));
    EXPECT_FALSE(heard(soundSamples("Frog")));
    EXPECT_FALSE(heard(soundSamples("Tink")));
}

TEST_F(PulseSounds, ServerThatGoesAndComesBack) {
    if (!std::filesystem::exists(server)) {
        GTEST_SKIP() << "no pulseaudio on this machine";
    }
    PulseSoundPlayer player;
    player.play("Pop");
    ASSERT_TRUE(comesTrue([this] { return !told().empty(); }));
    startServer();
    player.play("Pop");
    EXPECT_TRUE(comesTrue([this] { return heard(soundSamples("Pop")); }));
    EXPECT_EQ(told().size(), 1U);
}

TEST_F(PulseSounds, WithoutAServerAreSilentAndLeaveNothing) {
    {
        PulseSoundPlayer player;
        for (int round = 0; round < 5; ++round) {
            player.play("Pop");
            EXPECT_TRUE(comesTrue([this] { return !told().empty(); }));
        }
    }
    EXPECT_EQ(told().size(), 1U);
    EXPECT_EQ(told().front().first, log::Level::standard);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.path())) {
        EXPECT_TRUE(entry.is_directory()) << entry.path();
    }
}

TEST_F(PulseSounds, WithoutALibraryAreSilent) {
    {
        PulseSoundPlayer player("libnothing-of-the-kind.so.0");
        player.play("Pop");
        player.play("Ping");
        EXPECT_TRUE(comesTrue([this] { return !told().empty(); }));
    }
    EXPECT_EQ(told().size(), 1U);
}

TEST_F(PulseSounds, OfUnknownNamesAreNone) {
    PulseSoundPlayer player;
    player.play("Basso");
    player.play("");
    EXPECT_TRUE(told().empty());
}

/// The program may end while a server that takes connections says nothing.
TEST_F(PulseSounds, ServerThatNeverAnswersHoldsNobody) {
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socket().copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener, 1), 0);
    int connection = -1;
    {
        PulseSoundPlayer player;
        player.play("Pop");
        connection = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        EXPECT_GE(connection, 0);
    }
    EXPECT_TRUE(told().empty());
    ::close(connection);
    ::close(listener);
}

} // namespace
