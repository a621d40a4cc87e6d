#include "DemoStage.h"

#include "Base/Error.h"
#include "HookInstaller/HookInstaller.h"
#include "Platform/Linux/AtomicFile.h"
#include "Platform/Linux/LinuxFileSystem.h"
#include "Platform/Linux/LinuxResources.h"
#include "Platform/Linux/LinuxSettingsFiles.h"

#include <filesystem>
#include <fstream>
#include <tuple>
#include <utility>

namespace mimkins {

namespace {

namespace fs = std::filesystem;

constexpr const char* searchPath = "/usr/bin:/bin";
constexpr const char* git = "/usr/bin/git";
constexpr const char* projectFiles[] = {"src/main.cpp", "src/reader.cpp", "tests/main.cpp", "NOTES.md"};

void makeFolderOf(const std::string& path) {
    fs::create_directories(fs::path(path).parent_path());
}

void writeWhole(const std::string& path, const std::string& text) {
    constexpr mode_t mode = 0644;
    makeFolderOf(path);
    AtomicFile(path, text, mode, Durability::cached).replace();
}

} // namespace

DemoStage::DemoStage(Paths paths, const Clock& clock) : paths_(std::move(paths)), clock_(clock) {
    fs::create_directories(paths_.clientFolder());
    LinuxSettingsFiles files;
    HookInstaller(paths_, bundledHookScript(), files).connect();
    for (const auto& folder : {paths_.clientRegistry(), paths_.clientProjects(), paths_.desktopSessions()}) {
        fs::create_directories(folder);
    }
}

void DemoStage::play(const demo::Happening& happening) {
    const demo::Role role = roleOf(happening.appearance, paths_);
    const demo::Scene scene{*happening.act, *happening.step, role, clock_.now()};
    for (const auto& effect : effectsOf(scene)) {
        std::visit([this, &role](const auto& each) { apply(role, each); }, effect);
    }
}

DemoStage::Actor* DemoStage::actorOf(const demo::Role& role) {
    const auto found = actors_.find(role.id);
    return found == actors_.end() ? nullptr : &found->second;
}

std::string DemoStage::registryFile(const Actor& actor) const {
    return paths_.clientRegistry() + "/" + std::to_string(actor.process.pid()) + ".json";
}

void DemoStage::apply(const demo::Role& role, const demo::HookEvent& effect) {
    std::map<std::string, std::string> environment{
        {"HOME", paths_.home()}, {"PATH", searchPath}, {"CLAUDE_PROJECT_DIR", role.folder}};
    runTool({{paths_.hookScript()}, std::move(environment), role.folder, effect.payload});
}

void DemoStage::apply(const demo::Role&, const demo::Line& effect) {
    makeFolderOf(effect.path);
    std::ofstream file(effect.path, std::ios::app | std::ios::binary);
    file << effect.text << "\n";
    if (!file.flush()) {
        throw Error::posix(EIO, effect.path);
    }
}

void DemoStage::apply(const demo::Role&, const demo::Document& effect) {
    writeWhole(effect.path, effect.text);
}

void DemoStage::apply(const demo::Role&, const demo::Removal& effect) {
    fs::remove(effect.path);
}

void DemoStage::apply(const demo::Role& role, const demo::ClientStarts&) {
    actors_.erase(role.id);
    const auto started =
        actors_.emplace(std::piecewise_construct, std::forward_as_tuple(role.id), std::forward_as_tuple());
    started.first->second.started = clock_.now();
}

void DemoStage::apply(const demo::Role& role, const demo::ClientEnds&) {
    if (const auto* actor = actorOf(role)) {
        fs::remove(registryFile(*actor));
        actors_.erase(role.id);
    }
}

void DemoStage::apply(const demo::Role& role, const demo::RegistryStatus& effect) {
    if (const auto* actor = actorOf(role)) {
        const demo::Client client{actor->process.pid(), actor->started};
        writeWhole(registryFile(*actor), registryText(role, client, effect, clock_.now()));
    }
}

void DemoStage::apply(const demo::Role& role, const demo::ShellStarts& effect) {
    if (auto* actor = actorOf(role)) {
        actor->process.startShell(effect.key, effect.command);
    }
}

void DemoStage::apply(const demo::Role& role, const demo::ShellEnds& effect) {
    if (auto* actor = actorOf(role)) {
        actor->process.endShell(effect.key);
    }
}

void DemoStage::apply(const demo::Role&, const demo::Repository& effect) {
    if (fs::exists(effect.folder + "/.git")) {
        return;
    }
    for (const auto* name : projectFiles) {
        writeWhole(effect.folder + "/" + name, demo::sourceText(name, {}));
    }
    runGit(effect.folder, {"init", "--quiet", "--template=", "--initial-branch=main"});
    apply({}, demo::Commit{effect.folder, "Begin"});
}

void DemoStage::apply(const demo::Role&, const demo::Commit& effect) {
    runGit(effect.folder, {"add", "--all"});
    runGit(effect.folder, {"commit", "--quiet", "--allow-empty", "--message", effect.message});
}

void DemoStage::apply(const demo::Role& role, const demo::Backdate& effect) {
    constexpr std::size_t largestRecord = 65'536;
    const std::string path = paths_.sessions() + "/" + role.id + ".json";
    if (const auto record = LinuxFileSystem().readFile(path, largestRecord)) {
        writeWhole(path, backdated(*record, effect, clock_.now()));
    }
}

/// Nothing of the user's or the machine's settings plays a part, and nothing is left running.
void DemoStage::runGit(const std::string& folder, const std::vector<std::string>& words) const {
    std::vector<std::string> line{git, "-c", "gc.auto=0", "-c", "maintenance.auto=false"};
    line.insert(line.end(), words.begin(), words.end());
    std::map<std::string, std::string> environment{
        {"HOME", paths_.home()},
        {"PATH", searchPath},
        {"GIT_CONFIG_GLOBAL", "/dev/null"},
        {"GIT_CONFIG_NOSYSTEM", "1"},
        {"GIT_AUTHOR_NAME", "Demo"},
        {"GIT_AUTHOR_EMAIL", "demo@example.org"},
        {"GIT_COMMITTER_NAME", "Demo"},
        {"GIT_COMMITTER_EMAIL", "demo@example.org"}};
    const int status = runTool({std::move(line), std::move(environment), folder, {}});
    if (status != 0) {
        throw Error(
            Error::ownDomain, status,
            "git " + words.front() + " failed in " + folder + " with exit code " + std::to_string(status)
        );
    }
}

} // namespace mimkins
