#pragma once

#include "Base/Date.h"
#include "Base/Log.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace mimkins {

/// A line for a journal that reads standard error: priority in angle brackets, subsystem and category, text.
/// Line ends and other control characters in the text become blanks, so that one line stays one entry.
std::string journalLine(const log::Line& line);

/// A line for people: local time with milliseconds, level unless it is the standard one, category, text.
std::string terminalLine(const log::Line& line, Date now);

/// The file behind an open stream, as the system tells it from others.
struct StreamIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
};

/// True if the environment variable JOURNAL_STREAM ("device:inode") names this file.
bool isJournal(std::string_view journalStream, StreamIdentity file);

/// Where log lines go: to standard error, in the form that suits what reads it. May be called from any
/// thread.
std::function<void(const log::Line&)> standardErrorSink();

} // namespace mimkins
