#pragma once

#include "Platform/Clock.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace mimkins {

/// Careful writing into files that belong to the user and to other running programs. Each operation is one
/// step that either happened whole or not at all; the caller strings them together. Results of type
/// `std::errc` are zero on success; operations that return nothing throw an `Error` on failure.
class SettingsFiles : public Clock {
public:
    struct Contents {
        /// Nothing if the file is missing or can't be read.
        std::optional<std::string> bytes;
        /// Why it can't be read.
        std::errc failure{};

        bool missing() const {
            return failure == std::errc::no_such_file_or_directory || failure == std::errc::not_a_directory;
        }
    };

    /// All bytes of a regular file, links followed.
    virtual Contents read(const std::string& path) const = 0;

    /// False only if there is certainly nothing at the path, links followed.
    virtual bool exists(const std::string& path) const = 0;

    /// The path of the file itself when `path` names a symbolic link, even one that leads nowhere; otherwise
    /// `path`. Links in the folders above stay. Throws if that can't be found out.
    virtual std::string resolved(const std::string& path) const = 0;

    /// The permission bits (of 0777), links followed. Nothing if they can't be had.
    virtual std::optional<unsigned> permissions(const std::string& path) const = 0;

    /// The names in a folder. None if it can't be listed.
    virtual std::vector<std::string> list(const std::string& folder) const = 0;

    /// Makes a folder and those above it; throws unless it exists afterwards.
    virtual void createFolders(const std::string& path) = 0;

    struct NewFile {
        std::string path;
        std::string_view bytes;
        unsigned permissions = 0;
        /// The file whose extended attributes, access list and ownership the new one takes over; empty, or
        /// missing on the disk, for none.
        std::string attributesFrom;
    };

    /// Writes a file that is new in every respect: what stood at the path is unlinked, never followed or
    /// written into. The bytes are on the disk when this returns. After a failure nothing is left at the
    /// path.
    virtual void writeNew(const NewFile& file) = 0;

    virtual std::errc setPermissions(const std::string& path, unsigned permissions) = 0;

    /// Swaps two files in one atomic step. `operation_not_supported` if the system or the file system can't.
    virtual std::errc exchange(const std::string& left, const std::string& right) = 0;

    /// Moves a file to a path in one atomic step, replacing what is there.
    virtual std::errc rename(const std::string& from, const std::string& to) = 0;

    /// Moves a file to a path at which nothing is; `file_exists` if there is something, be it a dead link.
    virtual std::errc renameIfAbsent(const std::string& from, const std::string& to) = 0;

    virtual std::errc remove(const std::string& path) = 0;

    /// Brings a folder's entries to the disk. A failure is of no consequence for what other programs see.
    virtual void syncFolder(const std::string& folder) = 0;

    virtual int processId() const = 0;

    /// Blocks the calling thread.
    virtual void pause(std::chrono::microseconds time) = 0;
};

} // namespace mimkins
