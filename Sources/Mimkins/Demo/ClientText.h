#pragma once

#include "Demo/Effects.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace mimkins::demo {

/// The documents and transcript lines that the client would write in a scene. Identifiers follow from the
/// session, the act and the step's key, so that whatever belongs together finds each other.
class ClientText {
public:
    using Json = nlohmann::ordered_json;

    explicit ClientText(const Scene& scene) : scene_(scene) {}

    /// The hook's document for an event, with the members that the event has besides the usual ones.
    std::string event(std::string_view name, const Json& members) const;
    /// The same for an event of the subagent with this key.
    std::string subagentEvent(std::string_view name, const std::string& subagent, Json members) const;

    /// The members of a tool's event for the call that the step belongs to.
    Json toolMembers() const;
    /// The result of that call as its event and the transcript tell it.
    std::string resultText() const;

    /// Lines of the session's transcript, or of a subagent's where a key is given.
    std::string promptLine(const std::string& text, const std::string& subagent = {}) const;
    std::string callLine(const std::string& subagent = {}) const;
    enum class Outcome { success, failure };
    std::string resultLine(Outcome outcome, const std::string& subagent = {}) const;
    std::string answerLine(const std::string& subagent = {}) const;

    /// What wakes the agent when its background command has ended.
    std::string taskNotification() const;
    std::string subagentMetadata() const;
    std::string desktopMetadata() const;

    std::string agentId(const std::string& key) const;
    std::string subagentFile(const std::string& key, std::string_view ending) const;

    /// The step that opened what the present one belongs to; the present one if none did.
    const Step& opened() const;
    std::string toolName() const;
    Json toolInput() const;
    /// True if the call leaves its command running.
    bool isInBackground() const;

private:
    std::string madeUp(const std::string& key, std::size_t length, std::string_view alphabet) const;
    std::string callId() const;
    std::string taskId() const;
    std::string cronId(const std::string& key) const;
    std::string filled(std::string text) const;
    Json line(std::string_view type, Json message, const std::string& subagent) const;
    Json assistantMessage(Json content, std::string_view reason) const;

    const Scene& scene_;
};

} // namespace mimkins::demo
