#include "Platform/Linux/AtomicFile.h"

#include "Base/Error.h"
#include "Platform/Linux/FileDescriptor.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace mimkins {

namespace {

void writeAll(int descriptor, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const auto count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            throw Error::posix(errno, "Couldn't write " + path);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// Makes the temporary file, removing it again if it can't be completed.
std::string
writeTemporary(const std::string& path, std::string_view bytes, mode_t mode, Durability durability) {
    const std::filesystem::path target(path);
    std::string temporary = (target.parent_path() / ("." + target.filename().string() + ".XXXXXX")).string();
    const FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file) {
        throw Error::posix(errno, "Couldn't make a file beside " + path);
    }
    try {
        writeAll(file.get(), bytes, path);
        const bool synced = durability == Durability::cached || ::fsync(file.get()) == 0;
        if (!synced || ::fchmod(file.get(), mode) != 0) {
            throw Error::posix(errno, "Couldn't write " + path);
        }
    } catch (...) {
        ::unlink(temporary.c_str());
        throw;
    }
    return temporary;
}

} // namespace

AtomicFile::AtomicFile(std::string path, std::string_view bytes, mode_t mode, Durability durability)
    : path_(std::move(path)), temporary_(writeTemporary(path_, bytes, mode, durability)) {}

AtomicFile::~AtomicFile() {
    if (!temporary_.empty()) {
        ::unlink(temporary_.c_str());
    }
}

void AtomicFile::replace() {
    if (::rename(temporary_.c_str(), path_.c_str()) != 0) {
        throw Error::posix(errno, "Couldn't replace " + path_);
    }
    temporary_.clear();
}

} // namespace mimkins
