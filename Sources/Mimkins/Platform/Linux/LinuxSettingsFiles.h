#pragma once

#include "Platform/SettingsFiles.h"

namespace mimkins {

/// The user's real files. A system call that was merely interrupted is made again.
class LinuxSettingsFiles final : public SettingsFiles {
public:
    /// A file larger than this counts as unreadable.
    static constexpr std::size_t largestFile = 67'108'864; // 64 MiB

    Date now() const override;
    Contents read(const std::string& path) const override;
    bool exists(const std::string& path) const override;
    std::string resolved(const std::string& path) const override;
    std::optional<unsigned> permissions(const std::string& path) const override;
    std::vector<std::string> list(const std::string& folder) const override;
    void createFolders(const std::string& path) override;
    void writeNew(const NewFile& file) override;
    std::errc setPermissions(const std::string& path, unsigned permissions) override;
    std::errc exchange(const std::string& left, const std::string& right) override;
    std::errc rename(const std::string& from, const std::string& to) override;
    std::errc renameIfAbsent(const std::string& from, const std::string& to) override;
    std::errc remove(const std::string& path) override;
    void syncFolder(const std::string& folder) override;
    int processId() const override;
    void pause(std::chrono::microseconds time) override;
};

} // namespace mimkins
