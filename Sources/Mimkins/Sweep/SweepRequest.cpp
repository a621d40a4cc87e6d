#include "Sweep/SweepRequest.h"

#include "Base/Lookup.h"
#include "NextUp/NextUp.h"

namespace mimkins {

namespace {

constexpr const char* untitled = "Untitled";

std::optional<std::string> rootOf(const AppSessionInfo& info, const RegistryEntry* registered) {
    if (info.gitRoot) {
        return info.gitRoot;
    }
    return registered != nullptr ? registered->cwd : std::nullopt;
}

bool isRecent(const AppSessionInfo& info, Date now) {
    return info.lastActivity && now - *info.lastActivity < sweptSessionAge;
}

std::vector<SweptRepository> repositoriesToSweep(const SweepSources& sources, Date now) {
    std::map<std::string, SweptRepository> byRoot;
    for (const auto& [id, info] : sources.appInfo) {
        const auto root = rootOf(info, lookup(sources.registry, id));
        if (info.archived || !root || !isRecent(info, now)) {
            continue;
        }
        const SweptRepository candidate{
            *root, info.title.value_or(untitled), info.localId, *info.lastActivity};
        const auto [entry, isNew] = byRoot.try_emplace(*root, candidate);
        if (!isNew && candidate.at > entry->second.at) {
            entry->second = candidate;
        }
    }
    std::vector<SweptRepository> repositories;
    repositories.reserve(byRoot.size());
    for (auto& [root, repository] : byRoot) {
        repositories.push_back(std::move(repository));
    }
    return repositories;
}

std::string titleOf(const RegistryEntry& entry, const AppSessionInfo* info) {
    if (entry.name) {
        return *entry.name;
    }
    return info != nullptr ? info->title.value_or(untitled) : untitled;
}

std::vector<SweptTranscript> transcriptsToSweep(const SweepSources& sources) {
    std::vector<SweptTranscript> transcripts;
    for (const auto& [id, entry] : sources.registry) {
        if (auto path = sources.transcriptPath(id)) {
            transcripts.push_back(
                {id, titleOf(entry, lookup(sources.appInfo, id)), entry.localId, std::move(*path),
                 entry.started, entry.pid}
            );
        }
    }
    return transcripts;
}

} // namespace

SweepRequest gatherSweep(const SweepSources& sources, Date now) {
    return {
        now, NextUp::queue(sources.sessions), repositoriesToSweep(sources, now), transcriptsToSweep(sources)};
}

} // namespace mimkins
