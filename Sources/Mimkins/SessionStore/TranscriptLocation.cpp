#include "SessionStore/TranscriptLocation.h"

#include "Base/Text.h"

#include <string_view>

namespace mimkins {

namespace {

constexpr std::string_view transcriptExtension = ".jsonl";

std::string projectFolder(const Paths& paths, const std::string& workingFolder) {
    return paths.clientProjects() + "/" + text::dashed(workingFolder);
}

} // namespace

std::optional<std::string> transcriptPath(
    const Paths& paths, const std::string& id, const StatusRecord* record, const RegistryEntry* entry
) {
    if (record != nullptr && record->transcript) {
        return record->transcript;
    }
    if (entry == nullptr || !entry->cwd) {
        return std::nullopt;
    }
    return projectFolder(paths, *entry->cwd) + "/" + id + std::string(transcriptExtension);
}

std::optional<std::string> subagentsFolder(
    const Paths& paths, const std::string& id, const StatusRecord* record, const RegistryEntry* entry
) {
    if (record != nullptr && record->transcript) {
        const std::string_view path = *record->transcript;
        if (path.size() >= transcriptExtension.size() &&
            path.substr(path.size() - transcriptExtension.size()) == transcriptExtension) {
            return std::string(path.substr(0, path.size() - transcriptExtension.size())) + "/subagents";
        }
    }
    if (entry == nullptr || !entry->cwd) {
        return std::nullopt;
    }
    return projectFolder(paths, *entry->cwd) + "/" + id + "/subagents";
}

} // namespace mimkins
