#pragma once

#include "Base/Date.h"
#include "Platform/RandomAccessFile.h"
#include "Sweep/NameSearch.h"

#include <cstddef>
#include <vector>

namespace mimkins {

/// How many mentions of a name are looked at in one transcript, the latest first.
inline constexpr std::size_t mentionLimit = 300;

/// The longest line that is looked at, in bytes; a longer one says nothing.
inline constexpr std::size_t longestTranscriptLine = 33'554'432;

/// What to look for in a transcript.
struct ChangeQuery {
    const NameSearch& search;
    Date since;
    std::size_t blockSize = 262'144; ///< how many bytes are read at a time
};

/// Goes through a transcript from its end and sets `changed` for each name of which it shows a change at
/// `since` or later. Names that are already set aren't looked for. The search for a name ends at its first
/// change, at a mention in a line from before `since`, or at the limit of mentions; all names are searched
/// for in one pass.
void findChanges(const RandomAccessFile& transcript, const ChangeQuery& query, std::vector<bool>& changed);

} // namespace mimkins
