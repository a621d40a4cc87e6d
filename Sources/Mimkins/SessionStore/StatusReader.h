#pragma once

#include "Base/Date.h"
#include "Platform/FileSystem.h"
#include "Platform/KeptDocuments.h"
#include "Session/Sources.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

/// Reads one status file strictly: a required field that is missing or any field of the wrong type makes it
/// unreadable. A null counts as a missing field; unknown fields are ignored.
std::optional<StatusRecord> parseStatusRecord(std::string_view text);

/// Reads the status files again and again.
class StatusReader {
public:
    /// The files outlive the reader.
    explicit StatusReader(const FileSystem& files);

    /// The freshest record of each session in the folders, keyed by session id. Files are taken folder by
    /// folder in the order of their names; of two equally fresh records the later one stands. Hidden files
    /// don't count.
    std::map<std::string, StatusRecord> read(const std::vector<std::string>& folders, Date now);

private:
    KeptDocuments<StatusRecord> documents_;
};

/// The same for one time.
std::map<std::string, StatusRecord>
readStatusRecords(const FileSystem& files, const std::vector<std::string>& folders);

} // namespace mimkins
