#pragma once

#include "Platform/PreferencesStore.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace mimkins {

/// One JSON object in one file below a folder, named by the domain. Nothing is written, not even the folder,
/// until something is set. Each write puts the change into what the file holds at that moment, so that keys
/// and values that this version doesn't know survive it, as does what another process has set meanwhile. A
/// file that can't be read counts as empty; when something is set it is renamed, not lost.
class JsonPreferencesStore final : public PreferencesStore {
public:
    /// `domain` is the file's name without ".json".
    JsonPreferencesStore(std::string folder, const std::string& domain);
    ~JsonPreferencesStore() override;
    JsonPreferencesStore(const JsonPreferencesStore&) = delete;
    JsonPreferencesStore& operator=(const JsonPreferencesStore&) = delete;

    std::optional<Value> value(const std::string& key) const override;
    /// Text that isn't valid UTF-8 is repaired. A number that JSON can't hold, such as an infinite one, is
    /// kept as null, which reads as a missing key.
    void set(const std::string& key, const Value& value) override;
    void remove(const std::string& key) override;
    void removeAll() override;

private:
    struct Contents;
    using Change = std::optional<Value>; ///< nothing removes the key

    void apply(const std::string& key, const Change& change);
    void write(bool setAside);

    std::string folder_;
    std::string path_;
    std::unique_ptr<Contents> contents_;
    std::map<std::string, Change> unwritten_; ///< what a failed write left behind
};

} // namespace mimkins
