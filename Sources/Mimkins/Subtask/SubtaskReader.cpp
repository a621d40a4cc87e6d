#include "Subtask/SubtaskReader.h"

#include "Base/Text.h"

#include <utility>

namespace mimkins {

namespace {

/// Far more than any metadata file holds.
constexpr std::size_t metadataLimit = 1'048'576;

/// A final answer counts as final once no line has followed it for this many seconds.
constexpr double settledAfter = 5;

std::string withoutExtension(const std::string& path) {
    const auto extension = text::pathExtension(path);
    return extension.empty() ? path : path.substr(0, path.size() - extension.size() - 1);
}

std::string subtaskId(const std::string& transcript) {
    constexpr std::string_view prefix = "agent-";
    std::string id = withoutExtension(std::string(text::lastPathComponent(transcript)));
    for (auto found = id.find(prefix); found != std::string::npos; found = id.find(prefix, found)) {
        id.erase(found, prefix.size());
    }
    return id;
}

bool hasFinished(const TranscriptFacts& facts, double age) {
    return (facts.endedTurn && age > settledAfter) || age > SubtaskReader::longestSilence || facts.handedBack;
}

} // namespace

SubtaskMetadata subtaskMetadata(std::string_view json) {
    SubtaskMetadata metadata;
    const auto document = json::Document::parse(json);
    if (!document) {
        return metadata;
    }
    const json::Value root = document->root();
    if (auto type = root["agentType"].string()) {
        metadata.type = *std::move(type);
    }
    if (auto description = root["description"].string(); description && !description->empty()) {
        metadata.description = *std::move(description);
    }
    return metadata;
}

std::string metadataPath(const std::string& transcript) {
    return withoutExtension(transcript) + ".meta.json";
}

Subtask subtaskOf(const std::string& transcript, SubtaskFacts facts, Date modified, Date now) {
    Subtask subtask;
    subtask.id = subtaskId(transcript);
    subtask.type = std::move(facts.metadata.type);
    subtask.description = std::move(facts.metadata.description);
    subtask.running = !hasFinished(facts.transcript, now - modified);
    subtask.started = facts.metadataTime ? facts.metadataTime->date() : modified;
    subtask.lastActivity = modified;
    subtask.model = std::move(facts.transcript.model);
    if (subtask.running) {
        subtask.tool = std::move(facts.transcript.tool);
        subtask.detail = std::move(facts.transcript.detail);
        subtask.pending = std::move(facts.transcript.pending);
    }
    return subtask;
}

Subtask SubtaskReader::read(const std::string& transcript, Date modified, Date now) {
    const std::string beside = metadataPath(transcript);
    SubtaskFacts all;
    all.metadata = metadata(beside).value_or(SubtaskMetadata());
    all.metadataTime = files_->modified(beside);
    all.transcript = facts(transcript, modified).value_or(TranscriptFacts());
    return subtaskOf(transcript, std::move(all), modified, now);
}

std::optional<SubtaskMetadata> SubtaskReader::metadata(const std::string& path) const {
    const auto bytes = files_->readFile(path, metadataLimit);
    return bytes ? std::optional(subtaskMetadata(*bytes)) : std::nullopt;
}

std::optional<TranscriptFacts> SubtaskReader::facts(const std::string& transcript, Date modified) {
    auto end = files_->readTail(transcript, tailBytes);
    if (!end) {
        return std::nullopt;
    }
    return transcriptFacts(TranscriptTail(*std::move(end)), modified, parser_);
}

TranscriptTail SubtaskReader::tail(const std::string& path, std::size_t bytes) const {
    auto end = files_->readTail(path, bytes);
    return end ? TranscriptTail(*std::move(end)) : TranscriptTail();
}

std::vector<PendingTool> SubtaskReader::pendingTools(const TranscriptTail& lines, Date fallback) {
    return transcriptFacts(lines, fallback, parser_).pending;
}

} // namespace mimkins
