#include "Platform/Linux/LinuxSettingsFiles.h"

#include "Platform/Linux/FileAttributes.h"
#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/SystemCall.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <memory>
#include <thread>

namespace mimkins {

namespace {

constexpr int attempts = 3;

/// Queries a file until it answers or is known to be missing; a disk may fail once and answer then.
bool query(const std::string& path, struct stat& facts) {
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (::stat(path.c_str(), &facts) == 0) {
            return true;
        }
        if (errno == ENOENT || errno == ENOTDIR) {
            return false;
        }
    }
    return false;
}

FileDescriptor open(const std::string& path, int flags, mode_t mode = 0) {
    return FileDescriptor(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

/// Gives an errno value, zero on success.
int readRegular(const std::string& path, std::string& bytes) {
    const FileDescriptor file = open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);

    struct stat facts {};

    if (!file || ::fstat(file.get(), &facts) != 0) {
        return lastErrorNumber();
    }
    if (!S_ISREG(facts.st_mode)) {
        return S_ISDIR(facts.st_mode) ? EISDIR : EINVAL;
    }
    std::array<char, 65'536> chunk{};
    for (;;) {
        const auto count = uninterrupted([&] { return ::read(file.get(), chunk.data(), chunk.size()); });
        if (count <= 0) {
            return count < 0 ? lastErrorNumber() : 0;
        }
        bytes.append(chunk.data(), static_cast<std::size_t>(count));
        if (bytes.size() > LinuxSettingsFiles::largestFile) {
            return EFBIG;
        }
    }
}

/// One write of all the bytes. A short count is a failure, whose reason shows when the rest is tried.
int writeAll(int file, std::string_view bytes) {
    const auto count = uninterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
    if (count < 0) {
        return lastErrorNumber();
    }
    const auto rest = bytes.substr(static_cast<std::size_t>(count));
    if (rest.empty()) {
        return 0;
    }
    return ::write(file, rest.data(), rest.size()) < 0 ? lastErrorNumber() : EIO;
}

int takeAttributes(int file, const std::string& source) {
    if (source.empty()) {
        return 0;
    }
    const FileDescriptor from = open(source, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!from) {
        return errno == ENOENT ? 0 : lastErrorNumber();
    }
    return copyAttributes(from.get(), file);
}

/// Attributes come before the permissions, which have the last word on the access list's mask, and all of it
/// before the sync.
int fill(int file, const SettingsFiles::NewFile& wanted) {
    if (const int failure = writeAll(file, wanted.bytes)) {
        return failure;
    }
    if (const int failure = takeAttributes(file, wanted.attributesFrom)) {
        return failure;
    }
    if (uninterrupted([&] { return ::fchmod(file, wanted.permissions); }) != 0 ||
        uninterrupted([&] { return ::fsync(file); }) != 0) {
        return lastErrorNumber();
    }
    return 0;
}

/// Where a symbolic link leads; nothing if the path is no link or is missing. Throws if it can't be read.
std::optional<std::string> linkTarget(const std::string& path) {
    std::array<char, 4096> buffer{};
    const auto count = uninterrupted([&] { return ::readlink(path.c_str(), buffer.data(), buffer.size()); });
    if (count >= 0) {
        return std::string(buffer.data(), static_cast<std::size_t>(count));
    }
    if (errno == EINVAL || errno == ENOENT || errno == ENOTDIR) {
        return std::nullopt;
    }
    throwPosix(lastErrorNumber(), path);
}

std::errc renameWith(const std::string& from, const std::string& to, unsigned flags) {
    return outcome([&] { return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags); });
}

/// What kernels and file systems answer that don't know a flag of rename, or a sandbox that doesn't.
bool isUnsupported(std::errc result) {
    return result == std::errc::invalid_argument || result == std::errc::function_not_supported ||
           result == std::errc::operation_not_supported || result == std::errc::operation_not_permitted;
}

} // namespace

Date LinuxSettingsFiles::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return {std::chrono::duration<double>(sinceEpoch).count()};
}

SettingsFiles::Contents LinuxSettingsFiles::read(const std::string& path) const {
    std::string bytes;
    errno = 0;
    if (const int failure = readRegular(path, bytes)) {
        return {std::nullopt, static_cast<std::errc>(failure)};
    }
    return {std::move(bytes), {}};
}

bool LinuxSettingsFiles::exists(const std::string& path) const {
    struct stat facts {};

    return query(path, facts) || (errno != ENOENT && errno != ENOTDIR);
}

std::string LinuxSettingsFiles::resolved(const std::string& path) const {
    constexpr int mostLinks = 40; // as many as the kernel follows
    std::filesystem::path current = path;
    for (int count = 0; count < mostLinks; ++count) {
        const auto target = linkTarget(current);
        if (!target) {
            return current;
        }
        current = current.parent_path() / *target;
    }
    throwPosix(ELOOP, path);
}

std::optional<unsigned> LinuxSettingsFiles::permissions(const std::string& path) const {
    struct stat facts {};

    if (!query(path, facts)) {
        return std::nullopt;
    }
    return facts.st_mode & 0777U;
}

std::vector<std::string> LinuxSettingsFiles::list(const std::string& folder) const {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), &::closedir);
    while (const dirent* entry = open ? ::readdir(open.get()) : nullptr) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names.push_back(name);
        }
    }
    return names;
}

void LinuxSettingsFiles::createFolders(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error) {
        throwPosix(error.value(), path);
    }
}

void LinuxSettingsFiles::writeNew(const NewFile& file) {
    constexpr mode_t closed = 0600; // until the contents are whole
    uninterrupted([&] { return ::unlink(file.path.c_str()); });
    errno = 0;
    FileDescriptor descriptor = open(file.path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, closed);
    if (!descriptor) {
        throwPosix(lastErrorNumber(), file.path);
    }
    errno = 0;
    const int failure = fill(descriptor.get(), file);
    descriptor.close();
    if (failure != 0) {
        for (int attempt = 0; attempt < attempts && ::unlink(file.path.c_str()) != 0; ++attempt) {
        }
        throwPosix(failure, file.path);
    }
}

std::errc LinuxSettingsFiles::setPermissions(const std::string& path, unsigned permissions) {
    return outcome([&] { return ::chmod(path.c_str(), permissions); });
}

std::errc LinuxSettingsFiles::exchange(const std::string& left, const std::string& right) {
    const std::errc result = renameWith(left, right, RENAME_EXCHANGE);
    return isUnsupported(result) ? std::errc::operation_not_supported : result;
}

std::errc LinuxSettingsFiles::rename(const std::string& from, const std::string& to) {
    return outcome([&] { return ::rename(from.c_str(), to.c_str()); });
}

std::errc LinuxSettingsFiles::renameIfAbsent(const std::string& from, const std::string& to) {
    std::errc result = renameWith(from, to, RENAME_NOREPLACE);
    if (!isUnsupported(result)) {
        return result;
    }
    // A second name can't replace anything either. The first one goes afterwards, and if it doesn't, the file
    // stands in its place all the same.
    result = outcome([&] { return ::link(from.c_str(), to.c_str()); });
    if (result == std::errc{}) {
        remove(from);
        return result;
    }
    if (!isUnsupported(result)) {
        return result;
    }

    struct stat facts {};

    return ::lstat(to.c_str(), &facts) == 0 ? std::errc::file_exists : rename(from, to);
}

std::errc LinuxSettingsFiles::remove(const std::string& path) {
    return outcome([&] { return ::unlink(path.c_str()); });
}

void LinuxSettingsFiles::syncFolder(const std::string& folder) {
    const FileDescriptor open(uninterrupted([&] {
        return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }));
    if (open) {
        uninterrupted([&] { return ::fsync(open.get()); });
    }
}

int LinuxSettingsFiles::processId() const {
    return ::getpid();
}

void LinuxSettingsFiles::pause(std::chrono::microseconds time) {
    std::this_thread::sleep_for(time);
}

} // namespace mimkins
