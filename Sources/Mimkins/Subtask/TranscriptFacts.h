#pragma once

#include "Base/Date.h"
#include "Base/Json.h"
#include "Model/ModelTag.h"
#include "Session/Facts.h"
#include "Subtask/TranscriptTail.h"

#include <optional>
#include <string>
#include <vector>

/// What the lines of a transcript tell.
namespace mimkins {

/// A short description of a tool call from its input: what it is for, the file or address it is about, or its
/// command, on one line. Nothing if the input tells none of these.
std::optional<std::string> detail(const json::Value& input);

/// Takes over the model and the effort that a line names. A made-up message's model counts as none.
void note(const json::Value& line, ModelTag& tag);

/// What the end of a transcript says about the one who writes it.
struct TranscriptFacts {
    std::vector<PendingTool> pending; ///< calls without a result, in call order
    std::optional<std::string> tool;  ///< the name of the last call
    std::optional<std::string> detail;
    ModelTag model;          ///< the last values seen
    bool handedBack = false; ///< a subagent gave its result back
    bool endedTurn = false;  ///< the last line is the end of a turn

    friend bool operator==(const TranscriptFacts&, const TranscriptFacts&) = default;
};

/// Which lines are parsed. The facts are the same.
enum class LinesToParse {
    telling, ///< only those that may tell something, by a glance at their bytes
    all
};

/// Reads the lines in order. Lines that aren't JSON objects are passed over. `fallback` is the time of a call
/// whose line has no readable time.
TranscriptFacts transcriptFacts(
    const TranscriptTail& tail, Date fallback, json::Parser& parser,
    LinesToParse lines = LinesToParse::telling
);

} // namespace mimkins
