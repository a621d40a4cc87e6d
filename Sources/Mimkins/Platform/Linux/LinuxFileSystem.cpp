#include "Platform/Linux/LinuxFileSystem.h"

#include "Platform/Linux/FileDescriptor.h"

#include <dirent.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>

namespace mimkins {

namespace {

/// Reads until `bytes` is full or the file ends, and cuts `bytes` to what came. False on a read error.
bool readInto(int descriptor, std::string& bytes, std::uint64_t position) {
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const auto count = ::pread(
            descriptor, bytes.data() + filled, bytes.size() - filled, static_cast<off_t>(position + filled)
        );
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return false;
        }
        if (count == 0) {
            break;
        }
        filled += static_cast<std::size_t>(count);
    }
    bytes.resize(filled);
    return true;
}

FileTime fileTime(const timespec& time) {
    return {time.tv_sec, static_cast<std::int32_t>(time.tv_nsec)};
}

} // namespace

std::optional<std::string> LinuxFileSystem::readFile(const std::string& path, std::size_t limit) const {
    struct stat facts {};

    const auto file = openRegular(path, facts);
    if (!file || facts.st_size < 0 || static_cast<std::uint64_t>(facts.st_size) > limit) {
        return std::nullopt;
    }
    // One byte more than the size, so that growth since the query shows and a file in /proc, which says 0, is
    // read as far as the limit allows.
    const std::size_t most = std::max(limit, limit + 1);
    std::string bytes(std::min(static_cast<std::size_t>(facts.st_size) + 1, most), '\0');
    if (facts.st_size == 0) {
        bytes.resize(std::min<std::size_t>(most, 65'536));
    }
    if (!readInto(file.get(), bytes, 0) || bytes.size() > limit) {
        return std::nullopt;
    }
    return bytes;
}

std::optional<FileSystem::Tail> LinuxFileSystem::readTail(const std::string& path, std::size_t count) const {
    struct stat facts {};

    const auto file = openRegular(path, facts);
    if (!file || facts.st_size < 0) {
        return std::nullopt;
    }
    const auto size = static_cast<std::uint64_t>(facts.st_size);
    Tail tail;
    tail.position = size > count ? size - count : 0;
    tail.bytes.resize(static_cast<std::size_t>(size - tail.position));
    if (!readInto(file.get(), tail.bytes, tail.position)) {
        return std::nullopt;
    }
    return tail;
}

std::vector<std::string> LinuxFileSystem::list(const std::string& folder) const {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), &::closedir);
    if (!open) {
        return names;
    }
    while (const dirent* entry = ::readdir(open.get())) {
        std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names.push_back(std::move(name));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<FileTime> LinuxFileSystem::modified(const std::string& path) const {
    struct stat facts {};

    if (::stat(path.c_str(), &facts) != 0) {
        return std::nullopt;
    }
    return fileTime(facts.st_mtim);
}

std::optional<FileStamp> LinuxFileSystem::stamp(const std::string& path) const {
    struct stat facts {};

    if (::stat(path.c_str(), &facts) != 0) {
        return std::nullopt;
    }
    return FileStamp{
        fileTime(facts.st_mtim), fileTime(facts.st_ctim), static_cast<std::uint64_t>(facts.st_size),
        facts.st_ino, facts.st_dev};
}

bool LinuxFileSystem::isFolder(const std::string& path) const {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

bool LinuxFileSystem::createFolders(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return isFolder(path);
}

} // namespace mimkins
