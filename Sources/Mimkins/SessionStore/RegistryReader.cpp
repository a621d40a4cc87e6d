#include "SessionStore/RegistryReader.h"

#include "Base/Json.h"
#include "Base/Text.h"

#include <utility>

namespace mimkins {

namespace {

constexpr std::size_t largestRegistryFile = 1 << 20;

bool isRegistryFile(std::string_view name) {
    return text::pathExtension(name) == "json";
}

} // namespace

std::optional<RegistryEntry> parseRegistryEntry(std::string_view text) {
    const auto document = json::Document::parse(text);
    if (!document) {
        return std::nullopt;
    }
    const auto root = document->root();
    const auto pid = root["pid"].integer32();
    auto sessionId = root["sessionId"].string();
    auto status = root["status"].string();
    if (!pid || !sessionId || !status) {
        return std::nullopt;
    }
    RegistryEntry entry;
    entry.pid = *pid;
    entry.sessionId = std::move(*sessionId);
    entry.status = std::move(*status);
    entry.localId = root["hostSessionId"].string();
    entry.name = root["name"].string();
    entry.cwd = root["cwd"].string();
    entry.waitingFor = root["waitingFor"].string();
    const auto statusUpdated = root["statusUpdatedAt"].number();
    const auto updated = statusUpdated ? statusUpdated : root["updatedAt"].number();
    entry.updated = Date::fromMilliseconds(updated.value_or(0));
    entry.started = Date::fromMilliseconds(root["startedAt"].number().value_or(0));
    return entry;
}

RegistryReader::RegistryReader(const FileSystem& files, const Processes& processes)
    : documents_(files, {isRegistryFile, parseRegistryEntry, largestRegistryFile}), processes_(&processes) {}

std::map<std::string, RegistryEntry> RegistryReader::read(const std::string& folder, Date now) {
    std::map<std::string, RegistryEntry> entries;
    documents_.forEach({folder}, now, [this, &entries](const RegistryEntry& entry) {
        if (processes_->isAlive(entry.pid)) {
            entries.insert_or_assign(entry.sessionId, entry);
        }
    });
    return entries;
}

} // namespace mimkins
