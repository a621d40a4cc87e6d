#pragma once

#include "Platform/RandomAccessFile.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace mimkins::test {

/// Files in memory, open for reading in pieces, which several threads may do. Each change of a file gives it
/// a new time. Counts what is asked of it, and fails when told to.
class MemoryFiles final : public RandomAccessFiles {
public:
    struct Counts {
        int looks = 0;
        int opens = 0;
        int reads = 0;
        std::size_t largestRead = 0; ///< bytes
    };

    void write(const std::string& path, std::string bytes) {
        auto& file = files_[path];
        file.bytes = std::move(bytes);
        ++file.changes;
    }

    void append(const std::string& path, std::string_view bytes) {
        auto& file = files_[path];
        file.bytes += bytes;
        ++file.changes;
    }

    void remove(const std::string& path) { files_.erase(path); }

    const std::string& bytes(const std::string& path) { return files_[path].bytes; }

    /// From now on files are there but can't be opened.
    bool refuseToOpen = false;
    /// Reading from this position of a file on fails.
    std::optional<std::uint64_t> brokenFrom;
    /// Reading finds the file's end at this position, as if it had shrunk after it was opened.
    std::optional<std::uint64_t> shrunkTo;
    /// Called before each read, with its position, for one read at a time.
    std::function<void(std::uint64_t)> beforeRead;

    const Counts& counts() const { return counts_; }

    std::optional<FileIdentity> look(const std::string& path) const override {
        ++counts_.looks;
        const auto file = files_.find(path);
        return file == files_.end() ? std::nullopt : std::optional(identityOf(file->second));
    }

    std::unique_ptr<RandomAccessFile> open(const std::string& path) const override {
        ++counts_.opens;
        const auto file = files_.find(path);
        if (file == files_.end() || refuseToOpen) {
            return nullptr;
        }
        return std::make_unique<OpenFile>(*this, file->second);
    }

private:
    struct File {
        std::string bytes;
        std::int64_t changes = 0;
    };

    static FileIdentity identityOf(const File& file) {
        return {1, 1, file.bytes.size(), FileTime{file.changes, 0}};
    }

    class OpenFile final : public RandomAccessFile {
    public:
        OpenFile(const MemoryFiles& files, const File& file)
            : files_(files), file_(file), identity_(identityOf(file)) {}

        FileIdentity identity() const override { return identity_; }

        std::optional<std::size_t> read(std::uint64_t position, std::span<char> buffer) const override {
            const std::lock_guard lock(files_.reading_);
            if (files_.beforeRead) {
                files_.beforeRead(position);
            }
            auto& counts = files_.counts_;
            ++counts.reads;
            counts.largestRead = std::max(counts.largestRead, buffer.size());
            if (files_.brokenFrom && position + buffer.size() > *files_.brokenFrom) {
                return std::nullopt;
            }
            const auto end =
                std::min<std::uint64_t>(files_.shrunkTo.value_or(file_.bytes.size()), file_.bytes.size());
            const auto begin = std::min(position, end);
            const auto count = std::min<std::uint64_t>(buffer.size(), end - begin);
            std::copy_n(file_.bytes.data() + begin, count, buffer.data());
            return count;
        }

    private:
        const MemoryFiles& files_;
        const File& file_;
        FileIdentity identity_;
    };

    std::map<std::string, File> files_;
    mutable std::mutex reading_;
    mutable Counts counts_;
};

} // namespace mimkins::test
