#pragma once

#include "Platform/FolderWatcher.h"
#include "Platform/Linux/DescriptorWatcher.h"

#include <cstdint>
#include <memory>

namespace mimkins {

/// Watches folders and files through one inotify instance. Changes inside a folder's files don't count.
/// Everything that happens before the main loop comes round is told in one call. When a watched folder itself
/// is removed or moved away, that is told once and the watch is over; a folder that takes its place isn't
/// watched.
class InotifyFolderWatcher final : public FolderWatcher {
public:
    /// The loop must outlive this.
    explicit InotifyFolderWatcher(DescriptorWatcher& loop);
    ~InotifyFolderWatcher() override;
    InotifyFolderWatcher(const InotifyFolderWatcher&) = delete;
    InotifyFolderWatcher& operator=(const InotifyFolderWatcher&) = delete;

    Handle watch(const std::string& folder, std::function<void()> changed) override;
    Handle watchFile(const std::string& file, std::function<void()> changed) override;

private:
    Handle add(const std::string& path, std::uint32_t events, std::function<void()> changed);

    struct State;
    std::shared_ptr<State> state_;
};

} // namespace mimkins
