#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The day of a crew of made-up sessions, as plain data.
namespace mimkins::demo {

/// What happens to a session in one step. Every deed stands for all that the client does and writes then:
/// events for the hook, lines of the transcript, the registry's status, processes.
enum class Deed : std::uint8_t {
    arrives,         ///< the client starts; `text` is unused
    leaves,          ///< the client ends
    prompts,         ///< the user types `text`
    calls,           ///< the agent calls the tool `name` with the input `text`, which is JSON
    returns,         ///< the call's result is there; `text` is it
    fails,           ///< the call failed, with the error `text`
    asks,            ///< the client asks the user's OK for the call
    reminds,         ///< the client tells that the OK is still missing
    grants,          ///< the user gives the OK
    elicits,         ///< a server asks the user `text`
    opensDialog,     ///< the client waits for the user without any event; `text` says for what
    closesDialog,    ///< and goes on
    interrupts,      ///< the user ends the turn by force, without any event
    stops,           ///< the turn ends with the answer `text`
    looks,           ///< the user looks at the session in the desktop client
    compacts,        ///< the client begins to compact the conversation
    compacted,       ///< and has done so
    sendsSubagent,   ///< a subagent of the type `name` begins; `text` describes its task
    subagentCalls,   ///< the subagent `of` calls the tool `name` with the input `text`
    subagentReturns, ///< the result of that call
    subagentAsks,    ///< the subagent `of` needs the user's OK
    subagentEnds,    ///< the subagent gives its answer `text`
    backgroundEnds,  ///< a command in the background ends, which wakes the agent
    edits,           ///< the file `name` of the project gets another content
    commits,         ///< all changes of the project are committed with the message `text`
    waitsSince,      ///< the present state is as old as `seconds` says
    silentSince,     ///< and so is the last sign of life
};

/// One step of an act.
struct Step {
    double at; ///< seconds from the act's beginning
    Deed deed;
    std::string key; ///< what belongs together in an act: a call and its result, a subagent and its end
    std::string name;
    std::string text; ///< "$DIR" stands for the project's folder
    std::string of;   ///< the subagent's key
    double seconds = 0;
};

/// A piece of a session's day that can follow any other: at its beginning and at its end no turn is under
/// way.
struct Act {
    std::string name;
    double length; ///< seconds of the day
    std::vector<Step> steps;
};

struct Script {
    Act arrival;
    std::vector<Act> acts; ///< each session plays them in this order, but begins with another one
    Act departure;

    double length() const; ///< seconds of a whole day
};

/// The one script there is.
const Script& script();

/// The step with this key and one of the deeds that open something (a call, a subagent); null if there is
/// none.
const Step* opening(const Act& act, const std::string& key);

/// True if the call with this key needs the user's OK.
bool needsApproval(const Act& act, const std::string& key);

} // namespace mimkins::demo
