#pragma once

#include "Platform/Linux/LinuxSettingsFiles.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mimkins::test {

/// The real files, with a clock that stands still, sleep that takes no time, and a look-in before each step
/// by which a test plays the other program.
class WatchedFiles final : public SettingsFiles {
public:
    Date time{1'795'246'266.0}; // 2026-11-21T07:31:06Z
    int process = 4242;
    std::vector<std::chrono::microseconds> pauses;
    /// What exchanges answer instead of happening.
    std::optional<std::errc> exchangeAnswer;
    std::function<void()> beforeWriting = [] {};
    std::function<void()> beforeExchange = [] {};
    std::function<void()> beforeMoving = [] {};
    std::function<void()> beforeReading = [] {};
    /// What plain renames answer instead of happening.
    std::optional<std::errc> renameAnswer;
    int exchanges = 0;

    Date now() const override { return time; }

    Contents read(const std::string& path) const override {
        beforeReading();
        return files_.read(path);
    }

    bool exists(const std::string& path) const override { return files_.exists(path); }

    std::string resolved(const std::string& path) const override { return files_.resolved(path); }

    std::optional<unsigned> permissions(const std::string& path) const override {
        return files_.permissions(path);
    }

    std::vector<std::string> list(const std::string& folder) const override { return files_.list(folder); }

    void createFolders(const std::string& path) override { files_.createFolders(path); }

    void writeNew(const NewFile& file) override {
        if (file.path.find("settings.json") != std::string::npos) {
            beforeWriting();
        }
        files_.writeNew(file);
    }

    std::errc setPermissions(const std::string& path, unsigned permissions) override {
        return files_.setPermissions(path, permissions);
    }

    std::errc exchange(const std::string& left, const std::string& right) override {
        ++exchanges;
        beforeExchange();
        return exchangeAnswer ? *exchangeAnswer : files_.exchange(left, right);
    }

    std::errc rename(const std::string& from, const std::string& to) override {
        return renameAnswer ? *renameAnswer : files_.rename(from, to);
    }

    std::errc renameIfAbsent(const std::string& from, const std::string& to) override {
        beforeMoving();
        return files_.renameIfAbsent(from, to);
    }

    std::errc remove(const std::string& path) override { return files_.remove(path); }

    void syncFolder(const std::string& folder) override { files_.syncFolder(folder); }

    int processId() const override { return process; }

    void pause(std::chrono::microseconds duration) override { pauses.push_back(duration); }

private:
    LinuxSettingsFiles files_;
};

} // namespace mimkins::test
