#pragma once

#include "Base/Paths.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace mimkins::demo {

/// Which session of the crew, on which of its days. Each day is a session of its own.
struct Appearance {
    std::size_t member = 0;
    std::size_t day = 0;

    friend bool operator==(const Appearance&, const Appearance&) = default;
};

/// Who a session is: everything about it that stays the same as long as it lives. Paths are absolute.
struct Role {
    std::string id; ///< as the client names sessions
    std::string title;
    std::string folder; ///< of the project; every fourth session works where the one before it does
    std::string transcript;
    std::string subagents; ///< the folder of its subagents' transcripts
    std::string model;
    std::string effort;
    std::string desktopId;
    std::string desktopFile; ///< the desktop client's metadata
};

/// The folder that holds all projects of a demo home.
std::string projectsFolder(const Paths& paths);

Role roleOf(const Appearance& appearance, const Paths& paths);

/// An identifier of so many characters out of the alphabet; the same text gives the same one.
std::string madeUpId(std::string_view text, std::size_t length, std::string_view alphabet);

inline constexpr std::string_view hexadecimal = "0123456789abcdef";
inline constexpr std::string_view lettersAndDigits = "0123456789abcdefghijklmnopqrstuvwxyz";

} // namespace mimkins::demo
