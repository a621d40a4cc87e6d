#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace mimkins {

/// Whether a new version is forced to the disk before it takes the file's place.
enum class Durability {
    synced,
    cached, ///< for what is of no use after the machine has stopped
};

/// A new version of a file: written beside it under a hidden name, it takes the file's
/// place in one step. Until then nothing of the old one changes; an object that is destroyed before removes
/// its temporary file.
class AtomicFile {
public:
    /// Writes the bytes. `mode` is the file's access rights, unaffected by the umask. Throws `Error` with the
    /// errno value of what failed.
    AtomicFile(
        std::string path, std::string_view bytes, mode_t mode, Durability durability = Durability::synced
    );
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// Takes the file's place. Throws `Error` if that fails, and leaves the old file.
    void replace();

private:
    std::string path_;
    std::string temporary_; ///< empty once it has taken the file's place
};

} // namespace mimkins
