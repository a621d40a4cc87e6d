#pragma once

#include "Base/Date.h"

#include <cstdint>
#include <optional>
#include <string>

/// The three records that other programs write about a session, all keyed by the agent's own session id.
namespace mimkins {

/// One status file, written by the hook script or by the `mimkin` command.
struct StatusRecord {
    std::string state; ///< "working", "waiting" or "done"; every other value means idle
    double since = 0;  ///< when this state began, milliseconds since 1970
    std::string id;
    std::string event; ///< the client's event that wrote the record
    std::optional<std::string> tool;
    std::optional<std::string> detail;
    std::optional<std::string> message;
    std::optional<std::string> notification;
    std::optional<std::string> cwd;
    std::optional<std::string> project;
    std::optional<std::string> transcript;
    std::optional<std::string> effort;
    std::optional<std::string> model;
    double ts = 0;                    ///< when the record was written, milliseconds since 1970
    std::optional<std::string> agent; ///< set by an agent other than Claude Code
    std::optional<std::string> title;
    std::optional<std::int32_t> pid;
    std::optional<std::string> open; ///< link that opens the session

    friend bool operator==(const StatusRecord&, const StatusRecord&) = default;
};

/// One document of the client's session registry: one running client process.
struct RegistryEntry {
    std::string sessionId;
    std::optional<std::string> localId;
    std::optional<std::string> name;
    std::optional<std::string> cwd;
    std::string status; ///< "busy", "waiting", "idle" or other
    std::optional<std::string> waitingFor;
    Date updated;
    Date started;
    std::int32_t pid = 0;

    friend bool operator==(const RegistryEntry&, const RegistryEntry&) = default;
};

/// One metadata document of the desktop client.
struct AppSessionInfo {
    std::string localId;
    std::optional<std::string> title;
    bool archived = false;
    std::optional<Date> lastFocused;
    std::optional<std::string> gitRoot;
    std::optional<std::string> effort;
    std::optional<Date> lastActivity;
    std::optional<std::string> model;

    friend bool operator==(const AppSessionInfo&, const AppSessionInfo&) = default;
};

} // namespace mimkins
