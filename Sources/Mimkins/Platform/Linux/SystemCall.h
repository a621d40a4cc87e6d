#pragma once

#include "Base/Error.h"

#include <cerrno>
#include <string>
#include <system_error>

namespace mimkins {

/// Makes a system call until it isn't interrupted, and gives its result.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// The reason of the last failed call; an input/output error if the system gave none.
inline int lastErrorNumber() {
    return errno > 0 ? errno : EIO;
}

/// Makes a system call and tells how it went; zero is success.
template <typename Call>
std::errc outcome(Call call) {
    errno = 0;
    return uninterrupted(call) < 0 ? static_cast<std::errc>(lastErrorNumber()) : std::errc{};
}

[[noreturn]] inline void throwPosix(int errorNumber, const std::string& path) {
    throw Error::posix(errorNumber, path);
}

} // namespace mimkins
