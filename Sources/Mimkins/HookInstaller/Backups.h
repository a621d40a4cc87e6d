#pragma once

#include "Base/Date.h"

#include <string>
#include <string_view>
#include <vector>

/// The names of the backups of settings.json. Pure rules.
namespace mimkins {

inline constexpr std::string_view backupPrefix = "settings.json.bak-mimkins-";
inline constexpr std::size_t backupsKept = 3;
/// The first backup of a second has no number, the last is "-99".
inline constexpr int lastBackupNumber = 99;

/// The name of a moment's backup, such as "settings.json.bak-mimkins-2026-11-15T191106Z"; a number from 2 on
/// is added as "-2".
std::string backupName(Date date, int number);

/// Those of a folder's names that are backups too old to be kept.
std::vector<std::string> outdatedBackups(const std::vector<std::string>& names);

} // namespace mimkins
