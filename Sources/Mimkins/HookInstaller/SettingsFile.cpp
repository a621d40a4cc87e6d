#include "HookInstaller/SettingsFile.h"

#include "Base/Error.h"
#include "HookInstaller/Backups.h"
#include "HookInstaller/SettingsText.h"

#include <chrono>
#include <utility>

namespace mimkins {

namespace {

constexpr int rounds = 5;
constexpr std::chrono::microseconds pauseBetweenRounds{50'000};
constexpr int keptChanging = 3;
constexpr unsigned usualPermissions = 0644;
/// How often a step is tried again that may fail once and then work.
constexpr int persistence = 3;
/// How many foreign writes in a row, each within microseconds of the last, are followed.
constexpr int mostExchanges = 32;

std::string folderOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

[[noreturn]] void throwPosix(std::errc failure, const std::string& path) {
    throw Error::posix(static_cast<int>(failure), path);
}

} // namespace

/// Removes the temporary file at the end of an attempt, however it ends.
class SettingsFile::TemporaryFile {
public:
    TemporaryFile(SettingsFile& owner, const std::string& path) : owner_(owner), path_(path) {}

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile() {
        if (!kept_) {
            owner_.removeReliably(path_);
        }
    }

    /// Leaves the file where it is, because it is the only place where somebody's settings stand.
    void keep() { kept_ = true; }

private:
    SettingsFile& owner_;
    const std::string& path_;
    bool kept_ = false;
};

std::optional<std::string> SettingsFile::bytes() const {
    auto contents = files_.read(paths_.clientSettings());
    for (int count = 1; count < persistence && !contents.bytes && !contents.missing(); ++count) {
        contents = files_.read(paths_.clientSettings());
    }
    return std::move(contents.bytes);
}

std::optional<std::string> SettingsFile::modify(WhenMissing whenMissing, const Mutation& mutate) {
    for (int round = 0; round < rounds; ++round) {
        const auto current = bytes();
        if (!current && whenMissing == WhenMissing::leave) {
            return std::nullopt;
        }
        SettingsObject root = current ? parseSettings(*current) : SettingsObject{};
        mutate(root);
        try {
            return write(root, current);
        } catch (const ChangedUnderneath&) {
            files_.pause(pauseBetweenRounds);
        }
    }
    throw Error(
        Error::ownDomain, keptChanging,
        "settings.json kept changing while Mimkins tried to update it. Try again in a moment."
    );
}

std::optional<std::string>
SettingsFile::write(const SettingsObject& root, const std::optional<std::string>& expected) {
    files_.createFolders(paths_.clientFolder());
    const std::string target = files_.resolved(paths_.clientSettings());
    const std::string name = "/.settings.json.mimkins-" + std::to_string(files_.processId()) + ".tmp";
    const Attempt attempt{
        target, folderOf(target) + name, expected, serialiseSettings(root),
        files_.permissions(target).value_or(usualPermissions)};
    files_.writeNew({attempt.temporary, attempt.replacement, attempt.permissions, target});
    TemporaryFile temporary(*this, attempt.temporary);
    if (files_.read(target).bytes != expected) {
        throw ChangedUnderneath{};
    }
    std::optional<std::string> backup;
    if (expected) {
        backup = makeBackup(attempt, *expected);
    }
    try {
        publish(attempt, temporary);
    } catch (const ChangedUnderneath&) {
        // The next round makes its own backup, of what it will have read.
        if (backup) {
            removeReliably(*backup);
        }
        throw;
    }
    files_.syncFolder(folderOf(target));
    pruneBackups();
    return backup;
}

/// The last step. Where it can be an exchange, a version that somebody put in place since the comparison is
/// not overwritten but comes out of it, and goes back.
void SettingsFile::publish(const Attempt& attempt, TemporaryFile& temporary) {
    if (!attempt.expected) {
        publishFirst(attempt);
        return;
    }
    // The backup took its time; looking again makes it rare that another program sees ours for a moment.
    if (files_.read(attempt.target).bytes != attempt.expected) {
        throw ChangedUnderneath{};
    }
    std::errc result = files_.exchange(attempt.temporary, attempt.target);
    if (result == std::errc{}) {
        if (files_.read(attempt.temporary).bytes != attempt.expected) {
            putBack(attempt, temporary);
            throw ChangedUnderneath{};
        }
        return;
    }
    if (result == std::errc::no_such_file_or_directory) {
        throw ChangedUnderneath{};
    }
    if (result == std::errc::operation_not_supported) {
        result = files_.rename(attempt.temporary, attempt.target);
    }
    if (result != std::errc{}) {
        throwPosix(result, attempt.target);
    }
}

/// Puts the first settings in place where there were none, and never over anything, such as a file that
/// can't be read.
void SettingsFile::publishFirst(const Attempt& attempt) {
    const std::errc result = files_.renameIfAbsent(attempt.temporary, attempt.target);
    if (result == std::errc{}) {
        return;
    }
    if (result != std::errc::file_exists) {
        throwPosix(result, attempt.target);
    }
    const auto contents = files_.read(attempt.target);
    if (contents.bytes || contents.missing()) {
        throw ChangedUnderneath{};
    }
    throwPosix(contents.failure, attempt.target);
}

/// After an exchange that brought out somebody else's version: exchanges until what comes out is what was put
/// in last. If it is something else, yet another version arrived meanwhile; being newer it belongs in place.
void SettingsFile::putBack(const Attempt& attempt, TemporaryFile& temporary) {
    std::optional<std::string> inPlace = attempt.replacement;
    for (int count = 0; count < mostExchanges; ++count) {
        const auto displaced = files_.read(attempt.temporary).bytes;
        const std::errc result = files_.exchange(attempt.temporary, attempt.target);
        if (result == std::errc::no_such_file_or_directory) {
            // Somebody removed the settings; that is the newest word on them.
            keepAside(attempt, displaced);
            return;
        }
        if (result != std::errc{}) {
            break;
        }
        const auto out = files_.read(attempt.temporary).bytes;
        if (!out || out == inPlace) {
            if (inPlace != attempt.replacement) {
                keepAside(attempt, inPlace);
            }
            return;
        }
        inPlace = displaced;
    }
    const std::errc result = files_.rename(attempt.temporary, attempt.target);
    if (result != std::errc{}) {
        temporary.keep();
        throwPosix(result, "The newest settings are in " + attempt.temporary);
    }
}

/// Keeps a version that its successor replaced without perhaps having seen it. It is no failure if that
/// doesn't work: the successor stands.
void SettingsFile::keepAside(const Attempt& attempt, const std::optional<std::string>& bytes) {
    if (!bytes) {
        return;
    }
    try {
        makeBackup(attempt, *bytes);
    } catch (const Error&) {
        return;
    }
}

std::string SettingsFile::makeBackup(const Attempt& attempt, const std::string& bytes) {
    const Date now = files_.now();
    const auto path = [&](int number) { return paths_.clientFolder() + "/" + backupName(now, number); };
    int number = 1;
    while (number < lastBackupNumber && files_.exists(path(number))) {
        ++number;
    }
    files_.writeNew({path(number), bytes, attempt.permissions, attempt.target});
    return path(number);
}

void SettingsFile::pruneBackups() {
    for (const auto& name : outdatedBackups(files_.list(paths_.clientFolder()))) {
        files_.remove(paths_.clientFolder() + "/" + name);
    }
}

void SettingsFile::removeReliably(const std::string& path) {
    for (int count = 0; count < persistence; ++count) {
        const std::errc result = files_.remove(path);
        if (result == std::errc{} || result == std::errc::no_such_file_or_directory) {
            return;
        }
    }
}

} // namespace mimkins
