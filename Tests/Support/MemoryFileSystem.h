#pragma once

#include "Platform/FileSystem.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins::test {

/// A file time from seconds since 1970, for tests that don't care about the nanoseconds.
constexpr FileTime fileTime(std::int64_t seconds, std::int32_t nanoseconds = 0) {
    return {seconds, nanoseconds};
}

/// Files in memory, each with a time of its own. Folders exist as soon as something lies in them. Counts what
/// is asked of it, so that tests can tell whether a cache was used.
class MemoryFileSystem final : public FileSystem {
public:
    struct File {
        std::string bytes;
        /// Nothing for a file whose time can't be had.
        std::optional<FileTime> time;
        /// False for a file that is there but can't be opened.
        bool readable = true;
        /// Another one for each file that takes a path.
        std::uint64_t inode = 0;
    };

    /// Writes a file, making the folders above it. Answers the file, to be changed further.
    File& write(const std::string& path, std::string_view bytes, std::optional<FileTime> time = FileTime{}) {
        createFolders(parent(path));
        return files_[path] = File{std::string(bytes), time, true, ++lastInode_};
    }

    void append(const std::string& path, std::string_view bytes, FileTime time) {
        createFolders(parent(path));
        auto& file = files_[path];
        file.bytes += bytes;
        file.time = time;
    }

    void setTime(const std::string& path, std::optional<FileTime> time) { files_.at(path).time = time; }

    void setReadable(const std::string& path, bool readable) { files_.at(path).readable = readable; }

    /// Removes a file, or a folder with all that lies below it.
    void remove(const std::string& path) {
        const auto isGone = [&](const std::string& candidate) {
            return candidate == path || candidate.compare(0, path.size() + 1, path + "/") == 0;
        };
        std::erase_if(files_, [&](const auto& entry) { return isGone(entry.first); });
        std::erase_if(folders_, isGone);
    }

    std::optional<std::string> readFile(const std::string& path, std::size_t limit) const override {
        ++reads_[path];
        const auto file = files_.find(path);
        if (file == files_.end() || !file->second.readable || file->second.bytes.size() > limit) {
            return std::nullopt;
        }
        return file->second.bytes;
    }

    std::optional<Tail> readTail(const std::string& path, std::size_t count) const override {
        ++reads_[path];
        const auto file = files_.find(path);
        if (file == files_.end() || !file->second.readable) {
            return std::nullopt;
        }
        const auto& bytes = file->second.bytes;
        const std::size_t position = bytes.size() > count ? bytes.size() - count : 0;
        return Tail{bytes.substr(position), position};
    }

    std::vector<std::string> list(const std::string& folder) const override {
        ++listings_;
        return entries(folder);
    }

    std::optional<FileTime> modified(const std::string& path) const override {
        const auto file = files_.find(path);
        if (file != files_.end()) {
            return file->second.time;
        }
        return isFolder(path) ? std::optional<FileTime>(FileTime{}) : std::nullopt;
    }

    /// A file's last change of any kind is the last one of its contents. A folder's stamp tells its entries.
    std::optional<FileStamp> stamp(const std::string& path) const override {
        const auto time = modified(path);
        if (!time) {
            return std::nullopt;
        }
        const auto file = files_.find(path);
        if (file != files_.end()) {
            return FileStamp{*time, *time, file->second.bytes.size(), file->second.inode, 0};
        }
        std::string names;
        for (const auto& name : entries(path)) {
            names += name + "/";
        }
        return FileStamp{*time, *time, std::hash<std::string>()(names), 0, 0};
    }

    bool isFolder(const std::string& path) const override { return folders_.contains(path); }

    bool createFolders(const std::string& path) override {
        for (std::string folder = path; !folder.empty() && folder != "/"; folder = parent(folder)) {
            if (files_.contains(folder)) {
                return false;
            }
            folders_.insert(folder);
        }
        return true;
    }

    /// How often a file was read, whole or in part.
    int reads(const std::string& path) const {
        const auto count = reads_.find(path);
        return count == reads_.end() ? 0 : count->second;
    }

    /// How often any folder was listed.
    int listings() const { return listings_; }

private:
    static std::string parent(const std::string& path) {
        const auto slash = path.rfind('/');
        return slash == std::string::npos ? std::string() : path.substr(0, slash);
    }

    std::vector<std::string> entries(const std::string& folder) const {
        std::set<std::string> names;
        for (const auto& [path, file] : files_) {
            if (parent(path) == folder) {
                names.insert(path.substr(folder.size() + 1));
            }
        }
        for (const auto& path : folders_) {
            if (path != folder && parent(path) == folder) {
                names.insert(path.substr(folder.size() + 1));
            }
        }
        return {names.begin(), names.end()};
    }

    std::map<std::string, File> files_;
    std::set<std::string> folders_;
    mutable std::map<std::string, int> reads_;
    mutable int listings_ = 0;
    std::uint64_t lastInode_ = 0;
};

} // namespace mimkins::test
