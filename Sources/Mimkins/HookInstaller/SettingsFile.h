#pragma once

#include "Base/Paths.h"
#include "HookInstaller/SettingsValue.h"
#include "Platform/SettingsFiles.h"

#include <functional>
#include <optional>
#include <string>

namespace mimkins {

/// The client's settings.json: belongs to the user and to a running client that may rewrite it at any moment.
/// Every change compares the file with the bytes that were read, keeps a dated backup of them, and takes
/// effect in one atomic step. In every failure the file itself is as it was.
class SettingsFile {
public:
    enum class WhenMissing { create, leave };
    using Mutation = std::function<void(SettingsObject&)>;

    SettingsFile(const Paths& paths, SettingsFiles& files) : paths_(paths), files_(files) {}

    /// Nothing if the file is missing or can't be read.
    std::optional<std::string> bytes() const;

    /// Reads, changes and writes, up to five times if somebody else writes meanwhile. Gives the path of the
    /// backup; nothing if there was no file. Throws an `Error`: code 3 when the file kept changing, what
    /// `parseSettings` throws, or the system's own.
    std::optional<std::string> modify(WhenMissing whenMissing, const Mutation& mutate);

private:
    /// The file no longer holds the bytes that were read.
    struct ChangedUnderneath {};

    /// One attempt to replace the file.
    struct Attempt {
        std::string target;
        std::string temporary;
        /// What the file held when it was read; nothing if there was none.
        const std::optional<std::string>& expected;
        std::string replacement;
        unsigned permissions = 0;
    };

    class TemporaryFile;

    std::optional<std::string> write(const SettingsObject& root, const std::optional<std::string>& expected);
    void publish(const Attempt& attempt, TemporaryFile& temporary);
    void publishFirst(const Attempt& attempt);
    void putBack(const Attempt& attempt, TemporaryFile& temporary);
    void keepAside(const Attempt& attempt, const std::optional<std::string>& bytes);
    std::string makeBackup(const Attempt& attempt, const std::string& bytes);
    void pruneBackups();
    void removeReliably(const std::string& path);

    const Paths& paths_;
    SettingsFiles& files_;
};

} // namespace mimkins
