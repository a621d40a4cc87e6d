#include "Subtask/SubtaskReader.h"

#include "Base/Text.h"
#include "Subtask/TranscriptFacts.h"

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

Subtask SubtaskReader::read(const std::string& transcript, Date modified, Date now) {
    const std::string metadataPath = withoutExtension(transcript) + ".meta.json";
    SubtaskMetadata metadata = subtaskMetadata(files_->readFile(metadataPath, metadataLimit).value_or(""));
    const auto metadataTime = files_->modified(metadataPath);
    TranscriptFacts facts = transcriptFacts(tail(transcript, tailBytes), modified, parser_);

    Subtask subtask;
    subtask.id = subtaskId(transcript);
    subtask.type = std::move(metadata.type);
    subtask.description = std::move(metadata.description);
    subtask.running = !hasFinished(facts, now - modified);
    subtask.started = metadataTime ? metadataTime->date() : modified;
    subtask.lastActivity = modified;
    subtask.model = std::move(facts.model);
    if (subtask.running) {
        subtask.tool = std::move(facts.tool);
        subtask.detail = std::move(facts.detail);
        subtask.pending = std::move(facts.pending);
    }
    return subtask;
}

TranscriptTail SubtaskReader::tail(const std::string& path, std::size_t bytes) const {
    auto end = files_->readTail(path, bytes);
    return end ? TranscriptTail(*std::move(end)) : TranscriptTail();
}

std::vector<PendingTool> SubtaskReader::pendingTools(const TranscriptTail& lines, Date fallback) {
    return transcriptFacts(lines, fallback, parser_).pending;
}

ModelTag SubtaskReader::modelTag(const std::string& transcript) {
    return transcriptFacts(tail(transcript, tailBytes), Date(), parser_).model;
}

} // namespace mimkins
