#pragma once

#include "Base/Date.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mimkins {

/// A file's time of change, to the nanosecond that the system keeps. Equality is exact; that is what caches
/// compare.
struct FileTime {
    std::int64_t seconds = 0;
    std::int32_t nanoseconds = 0;

    Date date() const { return {static_cast<double>(seconds) + static_cast<double>(nanoseconds) * 1e-9}; }

    friend auto operator<=>(const FileTime&, const FileTime&) = default;
};

/// What tells one state of a file from another without reading it. Contents that were read while a file had a
/// settled stamp are its contents for as long as it has that stamp.
struct FileStamp {
    FileTime modified; ///< the last change of contents
    FileTime changed;  ///< the last change of any kind; no program can set it back
    std::uint64_t size = 0;
    std::uint64_t inode = 0;
    std::uint64_t device = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// True if a change at `now` or later gives the file another stamp. The system's file times advance in steps,
/// so that two changes right after each other may look like one.
inline bool isSettled(const FileStamp& stamp, Date now) {
    // Some file systems keep whole or even seconds only.
    const double step = stamp.changed.nanoseconds == 0 ? 2.0 : 0.1;
    return now - stamp.changed.date() > step;
}

/// Reading of files that other programs own. They are hostile until read: only regular files are opened
/// (never a pipe or a device, and without waiting), and every failure is the absence of a result.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// All bytes of a regular file. Nothing if it can't be read, isn't regular, or is larger than `limit`
    /// bytes.
    virtual std::optional<std::string> readFile(const std::string& path, std::size_t limit) const = 0;

    struct Tail {
        std::string bytes;
        /// The position in the file at which `bytes` begins.
        std::uint64_t position = 0;
    };

    /// The last `count` bytes of a regular file, or all of a shorter one.
    virtual std::optional<Tail> readTail(const std::string& path, std::size_t count) const = 0;

    /// The names in a folder, without "." and "..", in ascending order of their bytes. None if it can't be
    /// listed.
    virtual std::vector<std::string> list(const std::string& folder) const = 0;

    /// The time of the last change of contents, links followed.
    virtual std::optional<FileTime> modified(const std::string& path) const = 0;

    /// What tells the file's or folder's present state from others, links followed. A folder has another one
    /// after an entry was added, removed or renamed.
    virtual std::optional<FileStamp> stamp(const std::string& path) const = 0;

    /// True if the path leads to a folder, links followed.
    virtual bool isFolder(const std::string& path) const = 0;

    /// Makes a folder and those above it. True if it exists afterwards.
    virtual bool createFolders(const std::string& path) = 0;
};

} // namespace mimkins
