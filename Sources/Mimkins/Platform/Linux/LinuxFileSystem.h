#pragma once

#include "Platform/FileSystem.h"

namespace mimkins {

/// The real file system.
class LinuxFileSystem final : public FileSystem {
public:
    std::optional<std::string> readFile(const std::string& path, std::size_t limit) const override;
    std::optional<Tail> readTail(const std::string& path, std::size_t count) const override;
    std::vector<std::string> list(const std::string& folder) const override;
    std::optional<FileTime> modified(const std::string& path) const override;
    std::optional<FileStamp> stamp(const std::string& path) const override;
    bool isFolder(const std::string& path) const override;
    bool createFolders(const std::string& path) override;
};

} // namespace mimkins
