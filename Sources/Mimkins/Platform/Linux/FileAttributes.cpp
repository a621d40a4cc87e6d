#include "Platform/Linux/FileAttributes.h"

#include "Platform/Linux/SystemCall.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mimkins {

namespace {

/// The access list is an extended attribute to the kernel, in a form of its own that copies byte for byte.
constexpr std::string_view accessList = "system.posix_acl_access";

/// Asks for a size, then for the contents, until the second answer fits the first. Nothing on failure, with
/// errno set.
template <typename Query>
std::optional<std::string> variableLength(Query query) {
    for (;;) {
        const auto size = uninterrupted([&] { return query(nullptr, 0); });
        if (size < 0) {
            return std::nullopt;
        }
        std::string buffer(static_cast<std::size_t>(size), '\0');
        if (size == 0) {
            return buffer;
        }
        const auto filled = uninterrupted([&] { return query(buffer.data(), buffer.size()); });
        if (filled >= 0) {
            buffer.resize(static_cast<std::size_t>(filled));
            return buffer;
        }
        if (errno != ERANGE) {
            return std::nullopt;
        }
    }
}

/// Nothing on failure, with errno set.
std::optional<std::vector<std::string>> attributeNames(int file) {
    const auto joined =
        variableLength([&](char* buffer, std::size_t size) { return ::flistxattr(file, buffer, size); });
    if (!joined) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    for (std::size_t start = 0; start < joined->size(); start += names.back().size() + 1) {
        names.emplace_back(joined->c_str() + start);
    }
    return names;
}

/// Checksums of the contents, which would be wrong on the new file.
bool describesContents(std::string_view name) {
    return name == "security.ima" || name == "security.evm";
}

/// The attributes that belong to the user and so must not be lost; the others belong to the system.
bool isUsers(std::string_view name) {
    return name == accessList || name.substr(0, 5) == "user.";
}

int copyAttribute(int from, int to, const std::string& name) {
    const auto value = variableLength([&](char* buffer, std::size_t size) {
        return ::fgetxattr(from, name.c_str(), buffer, size);
    });
    if (!value) {
        return errno == ENODATA || !isUsers(name) ? 0 : lastErrorNumber();
    }
    const auto result =
        uninterrupted([&] { return ::fsetxattr(to, name.c_str(), value->data(), value->size(), 0); });
    return result == 0 || errno == ENOTSUP || !isUsers(name) ? 0 : lastErrorNumber();
}

void copyOwner(int from, int to) {
    struct stat source {};

    struct stat target {};

    if (::fstat(from, &source) != 0 || ::fstat(to, &target) != 0 ||
        (source.st_uid == target.st_uid && source.st_gid == target.st_gid)) {
        return;
    }
    constexpr auto unchanged = static_cast<uid_t>(-1);
    if (::fchown(to, source.st_uid, source.st_gid) != 0) {
        // Only root may give a file away, but a member may pass it to the group.
        [[maybe_unused]] const int ignored = ::fchown(to, unchanged, source.st_gid);
    }
}

} // namespace

int copyAttributes(int from, int to) {
    copyOwner(from, to);
    const auto names = attributeNames(from);
    if (!names) {
        return errno == ENOTSUP ? 0 : lastErrorNumber();
    }
    if (std::find(names->begin(), names->end(), accessList) == names->end()) {
        // The folder's default list may have given the new file one that the old file hasn't.
        uninterrupted([&] { return ::fremovexattr(to, std::string(accessList).c_str()); });
    }
    for (const auto& name : *names) {
        const int failure = describesContents(name) ? 0 : copyAttribute(from, to, name);
        if (failure != 0) {
            return failure;
        }
    }
    return 0;
}

} // namespace mimkins
