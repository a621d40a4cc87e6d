#include "SessionStore/RegistryReader.h"

#include "Base/Json.h"
#include "Base/Text.h"

namespace mimkins {

namespace {

constexpr std::size_t largestRegistryFile = 1 << 20;

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

std::map<std::string, RegistryEntry>
readRegistry(const FileSystem& files, const Processes& processes, const std::string& folder) {
    std::map<std::string, RegistryEntry> entries;
    for (const auto& name : files.list(folder)) {
        if (text::pathExtension(name) != "json") {
            continue;
        }
        const auto bytes = files.readFile(folder + "/" + name, largestRegistryFile);
        auto entry = bytes ? parseRegistryEntry(*bytes) : std::nullopt;
        if (entry && processes.isAlive(entry->pid)) {
            entries.insert_or_assign(entry->sessionId, std::move(*entry));
        }
    }
    return entries;
}

} // namespace mimkins
