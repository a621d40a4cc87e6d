#pragma once

#include "Base/Date.h"
#include "Session/Mood.h"

#include <cstdint>
#include <optional>
#include <string>

namespace mimkins {

/// How the list is kept in order.
enum class ReorderMode { always, whenNeeded, never };

/// The user's rules for what shows and in which order.
struct SessionRules {
    double stuckAfter = 600;      ///< seconds of silence at work until a session counts as stuck
    double outOfPlayAfter = 1800; ///< seconds of silence until a session leaves the list
    bool showDone = true;
    ReorderMode reorder = ReorderMode::whenNeeded;

    friend bool operator==(const SessionRules&, const SessionRules&) = default;
};

/// One agent session as everything shows it: a snapshot that is replaced whole and never changed.
struct Session {
    std::string id;
    Mood mood = Mood::idle;
    Date since;        ///< when the present state began
    Date lastActivity; ///< the last sign of life from any source
    std::string project;
    std::optional<std::string> title;
    std::optional<std::string> tool;
    std::optional<std::string> detail;
    std::optional<std::string> message;
    std::optional<std::string> localId; ///< the desktop client's id
    std::optional<std::string> effort;
    std::optional<std::string> model;
    std::optional<std::string> folder;
    std::optional<std::string> agent; ///< set for an agent other than Claude Code
    std::optional<std::string> openLink;
    bool supervising = false; ///< only waits for its subagents

    /// The line of text under the name.
    std::optional<std::string> activity() const;
    /// The link that opens the session: the desktop client's, or a reported http, https or file link.
    std::optional<std::string> jumpURL() const;
    /// 0 to 2: how hard the session is told to think.
    int effortBoost() const;
    /// The pet's stable name. One step of `shuffle` renames all pets at once.
    std::string petName(std::uint64_t shuffle) const;

    friend bool operator==(const Session&, const Session&) = default;
};

} // namespace mimkins
