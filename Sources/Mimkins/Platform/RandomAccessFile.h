#pragma once

#include "Platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace mimkins {

/// What tells one state of a file from another without reading it. Two equal values mean the same file with
/// the same bytes, up to the grain of the system's clock.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0; ///< the file's number on its device
    std::uint64_t size = 0;   ///< bytes
    FileTime changed;         ///< last change of contents or attributes

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// A regular file that is open for reading in pieces. It may grow, shrink or change while it is open.
class RandomAccessFile {
public:
    virtual ~RandomAccessFile() = default;

    /// The file as it was when it was opened.
    virtual FileIdentity identity() const = 0;

    /// Fills the buffer from a position in the file. Gives the number of bytes that were there, which is less
    /// than the buffer's size only where the file ends; nothing on a failure to read. May be called from
    /// several threads at once.
    virtual std::optional<std::size_t> read(std::uint64_t position, std::span<char> buffer) const = 0;
};

/// Opens files of other programs for reading in pieces.
class RandomAccessFiles {
public:
    virtual ~RandomAccessFiles() = default;

    /// A single look at what the path leads to, links followed. Nothing if it is no regular file.
    virtual std::optional<FileIdentity> look(const std::string& path) const = 0;

    /// Null if the path leads to no regular file or the file can't be opened; never waits.
    virtual std::unique_ptr<RandomAccessFile> open(const std::string& path) const = 0;
};

} // namespace mimkins
