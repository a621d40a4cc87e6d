#include "Platform/Linux/LinuxRandomAccessFiles.h"

#include "Platform/Linux/FileDescriptor.h"

#include <utility>

namespace mimkins {

namespace {

FileIdentity identityOf(const struct stat& facts) {
    return {
        facts.st_dev, facts.st_ino, static_cast<std::uint64_t>(facts.st_size),
        FileTime{facts.st_ctim.tv_sec, static_cast<std::int32_t>(facts.st_ctim.tv_nsec)}};
}

class LinuxRandomAccessFile final : public RandomAccessFile {
public:
    LinuxRandomAccessFile(FileDescriptor file, const FileIdentity& identity)
        : file_(std::move(file)), identity_(identity) {}

    FileIdentity identity() const override { return identity_; }

    std::optional<std::size_t> read(std::uint64_t position, std::span<char> buffer) const override {
        std::size_t filled = 0;
        while (filled < buffer.size()) {
            const auto count = ::pread(
                file_.get(), buffer.data() + filled, buffer.size() - filled,
                static_cast<off_t>(position + filled)
            );
            if (count == 0) {
                break;
            }
            if (count > 0) {
                filled += static_cast<std::size_t>(count);
            } else if (errno != EINTR) {
                return std::nullopt;
            }
        }
        return filled;
    }

private:
    FileDescriptor file_;
    FileIdentity identity_;
};

} // namespace

std::optional<FileIdentity> LinuxRandomAccessFiles::look(const std::string& path) const {
    struct stat facts {};

    if (::stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return std::nullopt;
    }
    return identityOf(facts);
}

std::unique_ptr<RandomAccessFile> LinuxRandomAccessFiles::open(const std::string& path) const {
    struct stat facts {};

    FileDescriptor file = openRegular(path, facts);
    if (!file) {
        return nullptr;
    }
    return std::make_unique<LinuxRandomAccessFile>(std::move(file), identityOf(facts));
}

} // namespace mimkins
