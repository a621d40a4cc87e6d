#include "SessionStore/RegistryReader.h"

#include "Base/Json.h"
#include "Base/Text.h"

#include <utility>

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

std::map<std::string, RegistryEntry> RegistryReader::read(const std::string& folder, Date now) {
    std::map<std::string, RegistryEntry> entries;
    std::map<std::string, Document> seen;
    for (const auto& name : files_->list(folder)) {
        if (text::pathExtension(name) != "json") {
            continue;
        }
        const std::string path = std::string(folder).append("/").append(name);
        const auto stamp = files_->stamp(path);
        auto known = documents_.extract(path);
        if (known.empty() || !known.mapped().holdsFor(stamp)) {
            known = std::map<std::string, Document>{{path, readDocument(path, stamp, now)}}.extract(path);
        }
        const auto& entry = seen.insert(std::move(known)).position->second.value();
        if (entry && processes_->isAlive(entry->pid)) {
            entries.insert_or_assign(entry->sessionId, *entry);
        }
    }
    documents_ = std::move(seen);
    return entries;
}

RegistryReader::Document
RegistryReader::readDocument(const std::string& path, const std::optional<FileStamp>& stamp, Date now) const {
    const auto bytes = files_->readFile(path, largestRegistryFile);
    Document document;
    document.take(bytes ? parseRegistryEntry(*bytes) : std::nullopt, bytes ? stamp : std::nullopt, now);
    return document;
}

} // namespace mimkins
