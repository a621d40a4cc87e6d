#pragma once

#include "Platform/FolderWatcher.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace mimkins::test {

/// A watcher that tells of a change when the test says so.
class ManualFolderWatcher final : public FolderWatcher {
public:
    Handle watch(const std::string& folder, std::function<void()> changed) override {
        const auto key = nextKey_++;
        watches_[key] = {folder, std::move(changed)};
        return Handle([this, key] { watches_.erase(key); });
    }

    Handle watchFile(const std::string& file, std::function<void()> changed) override {
        return watch(file, std::move(changed));
    }

    /// Tells all who watch the folder or file.
    void change(const std::string& folder) {
        const auto watches = watches_;
        for (const auto& [key, watch] : watches) {
            if (watch.folder == folder) {
                watch.changed();
            }
        }
    }

    std::size_t count() const { return watches_.size(); }

private:
    struct Watch {
        std::string folder;
        std::function<void()> changed;
    };

    std::map<std::uint64_t, Watch> watches_;
    std::uint64_t nextKey_ = 0;
};

} // namespace mimkins::test
