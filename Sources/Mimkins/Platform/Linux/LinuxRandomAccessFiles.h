#pragma once

#include "Platform/RandomAccessFile.h"

namespace mimkins {

/// Files of the real file system, read with `pread`.
class LinuxRandomAccessFiles final : public RandomAccessFiles {
public:
    std::optional<FileIdentity> look(const std::string& path) const override;
    std::unique_ptr<RandomAccessFile> open(const std::string& path) const override;
};

} // namespace mimkins
