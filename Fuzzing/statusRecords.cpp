#include "SessionStore/StatusReader.h"
#include "Support.h"

#include "Base/Text.h"

#include <map>

// Status files as anyone may write them: a folder of them, and each by itself. What is read can be written
// and read again, no cut document counts, and of the records of one session the freshest stands.

namespace {

using namespace mimkins;
using fuzz::require;

std::string written(const StatusRecord& record) {
    fuzz::DocumentWriter document;
    document.add("state", record.state);
    document.add("since", record.since);
    document.add("id", record.id);
    document.add("event", record.event);
    document.add("tool", record.tool);
    document.add("detail", record.detail);
    document.add("message", record.message);
    document.add("notification", record.notification);
    document.add("cwd", record.cwd);
    document.add("project", record.project);
    document.add("transcript", record.transcript);
    document.add("effort", record.effort);
    document.add("model", record.model);
    document.add("ts", record.ts);
    document.add("agent", record.agent);
    document.add("title", record.title);
    if (record.pid) {
        document.add("pid", static_cast<double>(*record.pid));
    }
    document.add("open", record.open);
    return document.text();
}

void requireSoundRecord(std::string_view text, const StatusRecord& record) {
    const auto again = parseStatusRecord(written(record));
    require(again && *again == record, "a record reads back the same");
    const std::size_t lastBrace = text.rfind('}');
    require(lastBrace != std::string_view::npos, "a record is an object");
    require(!parseStatusRecord(text.substr(0, lastBrace)), "a document without its end is no record");
}

void requireSoundSession(const StatusRecord& record) {
    SessionInputs inputs;
    inputs.hook = &record;
    inputs.now = fuzz::now;
    fuzz::requireSoundSession(inputs);
}

/// The records that have to stand: for each session one that none of its others is fresher than, and the last
/// of those.
std::map<std::string, StatusRecord> freshest(const std::vector<StatusRecord>& records) {
    std::map<std::string, StatusRecord> result;
    for (const auto& candidate : records) {
        const auto held = result.find(candidate.id);
        const bool fresher = held == result.end() ? candidate.ts >= 0 : candidate.ts >= held->second.ts;
        if (fresher) {
            result[candidate.id] = candidate;
        }
    }
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto pieces = fuzz::pieces(fuzz::asText(data, size));
    std::vector<StatusRecord> records;
    for (const auto piece : pieces) {
        if (const auto record = parseStatusRecord(piece)) {
            requireSoundRecord(piece, *record);
            records.push_back(*record);
        }
    }
    if (!records.empty()) {
        requireSoundSession(records.front());
    }
    const auto files = fuzz::asFiles(pieces, "/status");
    require(readStatusRecords(files, {"/status"}) == freshest(records), "the freshest record stands");
    require(readStatusRecords(files, {"/none", "/status", "/status"}) == freshest(records), "folders add up");
    return 0;
}
