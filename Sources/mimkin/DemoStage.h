#pragma once

#include "Base/Paths.h"
#include "Demo/Effects.h"
#include "Demo/Schedule.h"
#include "DemoProcesses.h"
#include "Platform/Clock.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>

namespace mimkins {

/// A demo home on which steps are played: real files, processes and repositories. All processes end with it.
class DemoStage {
public:
    /// Connects the client in that home. Throws what the installer throws.
    DemoStage(Paths paths, const Clock& clock);

    void play(const demo::Happening& happening);

    std::size_t clients() const { return actors_.size(); }

private:
    /// A session of the crew while its client runs.
    struct Actor {
        ClientProcess process;
        Date started;
    };

    void apply(const demo::Role& role, const demo::HookEvent& effect);
    void apply(const demo::Role& role, const demo::Line& effect);
    void apply(const demo::Role& role, const demo::Document& effect);
    void apply(const demo::Role& role, const demo::Removal& effect);
    void apply(const demo::Role& role, const demo::ClientStarts& effect);
    void apply(const demo::Role& role, const demo::ClientEnds& effect);
    void apply(const demo::Role& role, const demo::RegistryStatus& effect);
    void apply(const demo::Role& role, const demo::ShellStarts& effect);
    void apply(const demo::Role& role, const demo::ShellEnds& effect);
    void apply(const demo::Role& role, const demo::Repository& effect);
    void apply(const demo::Role& role, const demo::Commit& effect);
    void apply(const demo::Role& role, const demo::Backdate& effect);

    Actor* actorOf(const demo::Role& role);
    std::string registryFile(const Actor& actor) const;
    void runGit(const std::string& folder, const std::vector<std::string>& words) const;

    const Paths paths_;
    const Clock& clock_;
    std::map<std::string, Actor> actors_; ///< by the session's id
};

} // namespace mimkins
