#include "Hook/HookRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

namespace mimkins::test {

namespace files = std::filesystem;

std::vector<HookPair> allHookPairs() {
    std::vector<HookPair> pairs;
    for (const auto* shell : {"dash", "bash", "busybox"}) {
        for (const auto* awk : {"mawk", "gawk", "original-awk", "busybox"}) {
            pairs.push_back({shell, awk});
        }
    }
    return pairs;
}

std::string pairName(const HookPair& pair) {
    std::string name = pair.shell + "_" + pair.awk;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

HookRun::HookRun(const HookPair& pair)
    : binaries_(home_ / "bin"), sessions_(home_ / "support of kim/sessions"),
      script_(home_ / "support of kim/hook/status.sh"), shell_{"/usr/bin/" + pair.shell} {
    if (pair.shell == "busybox") {
        shell_.emplace_back("sh");
    }
    files::create_directories(binaries_);
    files::create_directories(sessions_);
    files::create_directories(files::path(script_).parent_path());
    // Busybox goes by the name that it is called under.
    files::create_symlink("/usr/bin/" + pair.awk, binaries_ + "/awk");
    files::copy_file(MIMKINS_SOURCE_DIR "/Resources/hook/status.sh", script_);
    EXPECT_TRUE(files::exists("/usr/bin/" + pair.shell)) << pair.shell;
    EXPECT_TRUE(files::exists("/usr/bin/" + pair.awk)) << pair.awk;
}

ProgramResult HookRun::run(std::string_view input) const {
    ProgramCall call;
    call.words = shell_;
    call.words.push_back(script_);
    call.environment = {{"PATH", path()}};
    call.input = input;
    return runProgram(call);
}

void HookRun::feed(std::string_view input) const {
    const auto result = run(input);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
    for (const auto& name : files()) {
        EXPECT_NE(name.front(), '.') << name;
    }
}

std::vector<std::string> HookRun::files() const {
    std::vector<std::string> names;
    for (const auto& entry : files::directory_iterator(sessions_)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<nlohmann::json> HookRun::record(std::string_view name) const {
    const auto path = recordPath(name);
    if (!files::exists(path)) {
        return std::nullopt;
    }
    auto value = nlohmann::json::parse(readWhole(path), nullptr, false);
    EXPECT_FALSE(value.is_discarded()) << readWhole(path);
    return value;
}

std::optional<nlohmann::json> HookRun::onlyRecord() const {
    const auto names = files();
    EXPECT_LE(names.size(), 1U);
    if (names.empty()) {
        return std::nullopt;
    }
    return record(files::path(names.front()).stem().string());
}

void HookRun::replaceProgram(const std::string& name, const std::string& text) const {
    const auto path = binaries_ + "/" + name;
    files::remove(path);
    writeFile(path, "#!/bin/sh\n" + text + "\n");
    files::permissions(path, files::perms::owner_all);
}

void HookRun::callByName(const std::string& path, const std::string& name) const {
    auto text = readWhole(script_);
    const auto at = text.find(path);
    ASSERT_NE(at, std::string::npos) << path;
    writeFile(script_, text.replace(at, path.size(), binaries_ + "/" + name));
}

void HookRun::removeRecords() const {
    for (const auto& name : files()) {
        files::remove_all(sessions_ + "/" + name);
    }
}

double nowInMilliseconds() {
    const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(since1970).count());
}

} // namespace mimkins::test
