#pragma once

#include "Session/Session.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mimkins {

/// What the summary is about; decides its colours.
enum class SummaryKind { waiting, replies, pets };

/// The one-line summary of who needs the user.
struct Summary {
    SummaryKind kind = SummaryKind::pets;
    std::string text;

    friend bool operator==(const Summary&, const Summary&) = default;
};

/// How many sessions wait on the user or have lines to commit.
std::int64_t attentionCount(const std::vector<Session>& sessions);

/// "2 waiting on you".
std::string waitingWords(std::int64_t count);
/// "1 new reply", "2 new replies".
std::string replyWords(std::int64_t count);

/// "2 waiting on you", else "1 new reply", else "3 pets out".
Summary summary(const std::vector<Session>& sessions);

} // namespace mimkins
