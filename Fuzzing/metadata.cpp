#include "SessionStore/AppSessionReader.h"
#include "Subtask/SubtaskReader.h"
#include "Support.h"

// The two kinds of metadata: the file beside a subagent's transcript, and the desktop client's document of a
// session. What is read can be written and read again, and goes with any session.

namespace {

using namespace mimkins;
using fuzz::require;

void requireSoundSubtask(std::string_view text) {
    const SubtaskMetadata metadata = subtaskMetadata(text);
    require(!metadata.description.empty(), "a subagent has a description");
    fuzz::DocumentWriter document;
    document.add("agentType", metadata.type);
    document.add("description", metadata.description);
    require(subtaskMetadata(document.text()) == metadata, "a subagent's metadata read back the same");
}

void requireSoundApp(std::string_view text) {
    const auto read = parseAppSession(text);
    if (!read) {
        return;
    }
    const auto& [id, info] = *read;
    fuzz::DocumentWriter document;
    document.add("cliSessionId", id);
    document.add("sessionId", info.localId);
    document.add("title", info.title);
    document.add("isArchived", info.archived);
    document.add("effort", info.effort);
    document.add("model", info.model);
    AppSessionInfo plain = info;
    plain.lastFocused.reset();
    plain.lastActivity.reset();
    plain.gitRoot.reset();
    const auto again = parseAppSession(document.text());
    require(again && again->first == id && again->second == plain, "a session's metadata read back the same");

    StatusRecord hook;
    hook.state = "done";
    hook.id = id;
    hook.ts = fuzz::now.milliseconds();
    hook.since = hook.ts;
    SessionInputs inputs;
    inputs.hook = &hook;
    inputs.app = &info;
    inputs.now = fuzz::now;
    fuzz::requireSoundSession(inputs);
    require(
        deriveSession(inputs).session.has_value() != info.archived, "exactly an archived session is hidden"
    );
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asText(data, size);
    requireSoundSubtask(text);
    requireSoundApp(text);
    return 0;
}
