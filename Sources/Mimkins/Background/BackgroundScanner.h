#pragma once

#include "Background/LineBatch.h"
#include "Background/MarkedLines.h"
#include "Background/Tally.h"
#include "Background/TranscriptLine.h"
#include "Base/Date.h"
#include "Platform/Processes.h"
#include "Platform/RandomAccessFile.h"
#include "Session/Facts.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// Finds out from transcripts which work of a session goes on after its turn: commands in the background and
/// scheduled tasks. A transcript is matched as text, line by line, and only what it has grown by is read. One
/// scanner serves one thread.
class BackgroundScanner {
public:
    struct Options {
        /// The first reading of a longer transcript begins so many bytes before its end.
        std::uint64_t firstReadingLimit = 6'000'000;
        /// What is read at once, in bytes; at least 1.
        std::size_t blockSize = std::size_t{256} << 10U;
        MarkerSearch search = fastestMarkerSearch();
        SharedReading shared{};
    };

    /// `files` outlives the scanner.
    explicit BackgroundScanner(const RandomAccessFiles& files) : BackgroundScanner(files, Options{}) {}

    BackgroundScanner(const RandomAccessFiles& files, const Options& options);

    /// Reads what is new in a transcript and sums up what is known from it: the commands started at or after
    /// `processStart` and not ended, and the scheduled tasks to come, one-shot tasks first, the soonest at
    /// the front. A transcript that can't be read has nothing new.
    BackgroundWork scan(const std::string& transcript, Date processStart, Date now);

    /// Consumes the complete lines by which the transcript has grown. A failure leaves what the tally knows.
    void read(const std::string& transcript, Date now, Tally& tally);

    /// What is known from each transcript that was scanned, by its path.
    const std::map<std::string, Tally>& tallies() const { return tallies_; }

private:
    /// False if reading failed, so that there may be more to consume than the file's identity tells.
    bool consume(const RandomAccessFile& file, Date now, Tally& tally);
    bool isUnchanged(const std::string& transcript, const FileIdentity& identity) const;

    const RandomAccessFiles& files_;
    Options options_;
    MarkedLines lines_;
    TranscriptLineReader lineReader_;
    LineBatch batch_;
    std::map<std::string, Tally> tallies_;
    /// What each transcript was when it was last read to its end. Until it is something else, it needn't even
    /// be opened, though it may end in an unfinished line.
    std::map<std::string, FileIdentity> seen_;
};

/// What a tally says about the work of a process that started at `processStart`.
BackgroundWork summary(const Tally& tally, Date processStart, Date now);

/// A session whose transcript is to be scanned.
struct BackgroundRequest {
    std::string sessionId;
    std::string transcript;
    Date started;                ///< when the session's client process started
    std::int64_t liveShells = 0; ///< command shells that are the client's direct children
};

/// Scans the transcripts of all requests. Of each session at most as many commands are reported as it has
/// live shells, since a command whose shell is gone can't be running. Sessions without work are left out.
std::map<std::string, BackgroundWork>
scanBackground(BackgroundScanner& scanner, const std::vector<BackgroundRequest>& requests, Date now);

/// How many direct children of the process are command shells. 0 for an id below 1.
std::int64_t liveShellCount(const Processes& processes, std::int32_t parent);

} // namespace mimkins
