#include "Platform/Linux/HomeFolder.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace mimkins {

std::optional<std::string> homeFolder() {
    constexpr std::size_t usualSize = 4'096;
    constexpr std::size_t largestSize = 1'048'576;
    std::vector<char> buffer(usualSize);
    passwd entry{};
    passwd* found = nullptr;
    while (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == ERANGE &&
           buffer.size() < largestSize) {
        buffer.resize(buffer.size() * 2);
    }
    if (found == nullptr || found->pw_dir == nullptr || found->pw_dir[0] != '/') {
        return std::nullopt;
    }
    return std::string(found->pw_dir);
}

} // namespace mimkins
