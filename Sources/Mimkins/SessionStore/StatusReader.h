#pragma once

#include "Platform/FileSystem.h"
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

/// The freshest record of each session in the folders, keyed by session id. Files are taken folder by folder
/// in the order of their names; of two equally fresh records the later one stands. Hidden files don't count.
std::map<std::string, StatusRecord>
readStatusRecords(const FileSystem& files, const std::vector<std::string>& folders);

} // namespace mimkins
